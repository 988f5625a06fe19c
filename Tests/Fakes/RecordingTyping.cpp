#include "Tests/Fakes/RecordingTyping.h"

#include <condition_variable>
#include <mutex>

namespace fakes {

namespace {

class RecordingTyper final : public platform::TextTyper
{
public:
    RecordingTyper(RecordingTyping &record, std::stop_token stop)
        : record_(record)
        , stop_(std::move(stop))
    {}
    ~RecordingTyper() override { ++record_.closedCount; }

    bool post(const platform::CharacterEvent &event) override
    {
        if (record_.isLost || event.units == record_.cannotType) {
            return false;
        }
        record_.posted.push_back({std::u16string(event.units), event.isDown});
        return true;
    }

    bool isOpen() const override { return !record_.isLost; }
    bool finish() override
    {
        if (record_.whenUnread) {
            record_.whenUnread();
            std::mutex unshared;
            std::unique_lock lock(unshared);
            std::condition_variable_any().wait(lock, stop_, [] { return false; });
        }
        return isOpen() && record_.isRead && !record_.whenUnread;
    }

private:
    RecordingTyping &record_;
    std::stop_token stop_;
};

} // namespace

std::unique_ptr<platform::TextTyper> RecordingTyping::open(std::u16string_view text, QString &why,
                                                           const std::stop_token &stop)
{
    opened.emplace_back(text);
    if (!hasWay) {
        why = QStringLiteral("There is none.");
        return nullptr;
    }
    return std::make_unique<RecordingTyper>(*this, stop);
}

} // namespace fakes

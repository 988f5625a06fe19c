#include "Tests/Fakes/RecordingTyping.h"

namespace fakes {

namespace {

class RecordingTyper final : public platform::TextTyper
{
public:
    explicit RecordingTyper(RecordingTyping &record)
        : record_(record)
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
    bool finish() override { return isOpen() && record_.isRead; }

private:
    RecordingTyping &record_;
};

} // namespace

std::unique_ptr<platform::TextTyper> RecordingTyping::open(std::u16string_view text, QString &why)
{
    opened.emplace_back(text);
    if (!hasWay) {
        why = QStringLiteral("There is none.");
        return nullptr;
    }
    return std::make_unique<RecordingTyper>(*this);
}

} // namespace fakes

#include "SharedCore/PermissionsManager/MainThreadAnswer.h"

#include <QCoreApplication>

#include <atomic>
#include <memory>
#include <utility>

namespace sharedcore {

namespace {

class OneAnswer
{
public:
    explicit OneAnswer(std::function<void(bool)> callback)
        : callback_(std::move(callback))
    {}
    OneAnswer(const OneAnswer &) = delete;
    OneAnswer &operator=(const OneAnswer &) = delete;
    ~OneAnswer() { give(false); }

    void give(bool isGranted)
    {
        auto *mainThread = QCoreApplication::instance();
        if (!isGiven_.exchange(true) && callback_ && mainThread) {
            QMetaObject::invokeMethod(
                mainThread, [callback = std::move(callback_), isGranted] { callback(isGranted); },
                Qt::QueuedConnection);
        }
    }

private:
    std::function<void(bool)> callback_;
    std::atomic<bool> isGiven_ = false;
};

} // namespace

std::function<void(bool)> mainThreadAnswer(std::function<void(bool)> callback)
{
    return [answer = std::make_shared<OneAnswer>(std::move(callback))](bool isGranted) {
        answer->give(isGranted);
    };
}

} // namespace sharedcore

#include "Tests/Support/Eventually.h"

#include <QCoreApplication>

#include <thread>

namespace testsupport {

namespace {

constexpr std::chrono::milliseconds pause(2);

void rest()
{
    if (QCoreApplication::instance()) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    std::this_thread::sleep_for(pause);
}

} // namespace

bool eventually(const std::function<bool()> &predicate, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        rest();
    }
    return true;
}

void letPass(std::chrono::milliseconds duration)
{
    static_cast<void>(eventually([] { return false; }, duration));
}

} // namespace testsupport

#include "Tests/Support/Eventually.h"

#include <QCoreApplication>

#include <algorithm>
#include <thread>

namespace testsupport {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Clock::duration shortestPause = std::chrono::milliseconds(2);
constexpr Clock::duration longestPause = std::chrono::milliseconds(10);

// Many questions are work, for whoever is asked too, and other tests want the processor: who has waited for
// long may wait a little longer.
void rest(Clock::duration waited)
{
    if (QCoreApplication::instance()) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    std::this_thread::sleep_for(std::clamp(waited / 20, shortestPause, longestPause));
}

} // namespace

bool eventually(const std::function<bool()> &predicate, std::chrono::milliseconds timeout)
{
    const auto start = Clock::now();
    while (!predicate()) {
        const auto waited = Clock::now() - start;
        if (waited >= timeout) {
            return false;
        }
        rest(waited);
    }
    return true;
}

void letPass(std::chrono::milliseconds duration)
{
    static_cast<void>(eventually([] { return false; }, duration));
}

} // namespace testsupport

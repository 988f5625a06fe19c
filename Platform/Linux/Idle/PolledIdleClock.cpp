#include "Platform/Linux/Idle/PolledIdleClock.h"

#include <utility>

namespace platform {

namespace {

constexpr std::chrono::seconds longEnough(1);

} // namespace

PolledIdleClock::PolledIdleClock(QString name, std::function<Reading()> read, std::function<Time()> now)
    : name_(std::move(name))
    , read_(std::move(read))
    , now_(std::move(now))
{}

bool PolledIdleClock::isIdle()
{
    const auto reading = read_();
    const auto now = now_();
    if (!reading || !last_ || *reading < *last_) {
        idleSince_ = now;
    }
    last_ = reading;
    return reading && *reading > 0 && now - idleSince_ >= longEnough;
}

} // namespace platform

// An idle clock that has to be read.
#pragma once

#include "Platform/IdleClock.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace platform {

// Clocks of this kind count milliseconds or seconds, not all as they say, so only what both have in common
// counts: the reading grows, and falls when something happens.
class PolledIdleClock final : public IdleClock
{
public:
    using Reading = std::optional<std::uint64_t>; // nothing where the clock does not answer
    using Time = std::chrono::steady_clock::time_point;

    // `read` reads the clock, `now` the time.
    PolledIdleClock(QString name, std::function<Reading()> read,
                    std::function<Time()> now = std::chrono::steady_clock::now);

    [[nodiscard]] QString name() const override { return name_; }
    [[nodiscard]] bool isIdle() override;

private:
    QString name_;
    std::function<Reading()> read_;
    std::function<Time()> now_;
    Reading last_;
    Time idleSince_;
};

} // namespace platform

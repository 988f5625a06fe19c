// Timers and delayed work on the main run loop, and the wall clock.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

using Seconds = std::chrono::duration<double>;

// A repeating timer that is running. The run loop keeps it, so letting go of this handle does not stop it.
class RepeatingTimer
{
public:
    RepeatingTimer() = default;
    RepeatingTimer(const RepeatingTimer &) = delete;
    RepeatingTimer &operator=(const RepeatingTimer &) = delete;
    virtual ~RepeatingTimer() = default;

    // It never fires again, also when called from its own callback, and lets go of that. May be repeated.
    virtual void invalidate() = 0;
};

// Main thread; callbacks come on the main thread, from the run loop, never from inside one of these calls.
class Scheduler
{
public:
    using Callback = std::function<void()>;

    Scheduler() = default;
    Scheduler(const Scheduler &) = delete;
    Scheduler &operator=(const Scheduler &) = delete;
    virtual ~Scheduler() = default;

    // Fires at start + n × interval for n = 1, 2, ..., without drift. Times that passed while the run loop
    // was busy, or the process stopped, are fired once and not made up for; the grid stays. An interval that
    // is not above 0, or not a number, counts as 0.0001 s.
    virtual std::shared_ptr<RepeatingTimer> repeat(Seconds interval, Callback callback) = 0;

    // Fires once, `delay` from now (0 or more).
    virtual void after(Seconds delay, Callback callback) = 0;

    // The time of day.
    [[nodiscard]] virtual std::chrono::system_clock::time_point now() const = 0;
};

} // namespace platform

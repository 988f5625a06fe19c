// A run loop whose time is moved by hand.
#pragma once

#include "Platform/Scheduler.h"

#include <cstdint>
#include <list>

namespace fakes {

// Time stands still until advance() moves it; what falls due fires in the order of its time. Timers due at
// the same time fire in the order in which they were made.
class ManualScheduler final : public platform::Scheduler
{
public:
    std::shared_ptr<platform::RepeatingTimer> repeat(platform::Seconds interval, Callback callback) override;
    void after(platform::Seconds delay, Callback callback) override;
    std::chrono::system_clock::time_point now() const override;

    // Moves the time on and fires everything that falls due.
    void advance(platform::Seconds duration);

    [[nodiscard]] platform::Seconds elapsed() const { return elapsed_; }
    // Repeating timers that still run.
    [[nodiscard]] std::size_t runningTimers() const;

    // What now() answers while elapsed() is zero.
    std::chrono::system_clock::time_point start{std::chrono::seconds(1'700'000'000)};

private:
    class Handle final : public platform::RepeatingTimer
    {
    public:
        void invalidate() override { isValid = false; }

        bool isValid = true;
    };

    struct Entry
    {
        platform::Seconds start;
        platform::Seconds interval; // zero: fires once, at its start
        std::int64_t count = 1;     // of the firing that comes next
        Callback callback;
        std::shared_ptr<Handle> handle;

        [[nodiscard]] platform::Seconds due() const { return start + interval * static_cast<double>(count); }
        [[nodiscard]] bool isValid() const { return handle->isValid; }
    };

    void fire(std::list<Entry>::iterator entry);
    [[nodiscard]] std::list<Entry>::iterator nextDue();

    platform::Seconds elapsed_{0};
    std::list<Entry> entries_;
};

} // namespace fakes

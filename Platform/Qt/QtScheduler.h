// Timers on Qt's event loop.
#pragma once

#include "Platform/Scheduler.h"

namespace platform {

class QtScheduler final : public Scheduler
{
public:
    std::shared_ptr<RepeatingTimer> repeat(Seconds interval, Callback callback) override;
    void after(Seconds delay, Callback callback) override;
    std::chrono::system_clock::time_point now() const override;
};

} // namespace platform

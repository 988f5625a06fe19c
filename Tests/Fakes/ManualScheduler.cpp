#include "Tests/Fakes/ManualScheduler.h"

#include <algorithm>
#include <utility>

namespace fakes {

std::shared_ptr<platform::RepeatingTimer> ManualScheduler::repeat(platform::Seconds interval,
                                                                  Callback callback)
{
    auto handle = std::make_shared<Handle>();
    constexpr platform::Seconds shortest{0.0001};
    entries_.push_back(
        {elapsed_, interval > platform::Seconds(0) ? interval : shortest, 1, std::move(callback), handle});
    return handle;
}

void ManualScheduler::after(platform::Seconds delay, Callback callback)
{
    entries_.push_back({elapsed_ + delay, {}, 1, std::move(callback), std::make_shared<Handle>()});
}

std::chrono::system_clock::time_point ManualScheduler::now() const
{
    return start + std::chrono::duration_cast<std::chrono::system_clock::duration>(elapsed_);
}

void ManualScheduler::advance(platform::Seconds duration)
{
    const auto end = elapsed_ + duration;
    for (auto next = nextDue(); next != entries_.end() && next->due() <= end; next = nextDue()) {
        fire(next);
    }
    elapsed_ = end;
}

std::size_t ManualScheduler::runningTimers() const
{
    const auto isRunning = [](const Entry &entry) { return entry.isValid() && entry.interval.count() > 0; };
    return static_cast<std::size_t>(std::ranges::count_if(entries_, isRunning));
}

void ManualScheduler::fire(std::list<Entry>::iterator entry)
{
    elapsed_ = std::max(elapsed_, entry->due());
    const auto callback = entry->callback; // the entry may go while it runs
    if (entry->interval.count() > 0) {
        ++entry->count;
    } else {
        entry->handle->isValid = false;
    }
    callback();
}

std::list<ManualScheduler::Entry>::iterator ManualScheduler::nextDue()
{
    entries_.remove_if([](const Entry &entry) { return !entry.isValid(); });
    return std::ranges::min_element(entries_, {}, &Entry::due);
}

} // namespace fakes

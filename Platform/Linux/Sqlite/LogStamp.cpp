#include "Platform/Linux/Sqlite/LogStamp.h"

#include <algorithm>
#include <chrono>

namespace platform {

namespace {

constexpr std::chrono::milliseconds timeToSettle(50);

std::chrono::nanoseconds sinceTheEpoch(const timespec &time)
{
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

LogStamp::LogStamp(const struct stat &status)
    : size_(status.st_size)
    , written_(status.st_mtim)
    , changed_(status.st_ctim)
{}

bool LogStamp::operator==(const LogStamp &other) const
{
    return size_ == other.size_ && sinceTheEpoch(written_) == sinceTheEpoch(other.written_) &&
           sinceTheEpoch(changed_) == sinceTheEpoch(other.changed_);
}

bool LogStamp::isSettled() const
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now); // the clock that files get their times from
    const auto last = std::max(sinceTheEpoch(written_), sinceTheEpoch(changed_));
    const bool isOfWholeSeconds = written_.tv_nsec == 0 && changed_.tv_nsec == 0;
    return !isOfWholeSeconds && sinceTheEpoch(now) - last > timeToSettle;
}

} // namespace platform

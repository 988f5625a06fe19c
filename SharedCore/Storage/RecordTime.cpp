#include "SharedCore/Storage/RecordTime.h"

#include <atomic>
#include <utility>

namespace sharedcore {

namespace {

std::function<foundation::Date()> &source()
{
    static std::function<foundation::Date()> function;
    return function;
}

// A clock that was put back by more than this is followed; until then the moments go on one by one.
constexpr std::chrono::seconds longestWait(1);

std::int64_t after(std::int64_t previous, std::int64_t now)
{
    const bool isBehind = now <= previous && previous - now < std::chrono::microseconds(longestWait).count();
    return isBehind ? previous + 1 : now;
}

foundation::Date nextMoment()
{
    static std::atomic<std::int64_t> last{0};
    const auto now = foundation::currentDate().time_since_epoch().count();
    auto previous = last.load();
    while (!last.compare_exchange_weak(previous, after(previous, now))) {
    }
    return foundation::Date(std::chrono::microseconds(after(previous, now)));
}

} // namespace

foundation::Date recordTime()
{
    return source() ? source()() : nextMoment();
}

RecordTimeSource::RecordTimeSource(std::function<foundation::Date()> now)
{
    source() = std::move(now);
}

RecordTimeSource::~RecordTimeSource()
{
    source() = nullptr;
}

} // namespace sharedcore

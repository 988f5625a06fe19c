#include "Foundation/ReferenceDate.h"

#include <cmath>

namespace foundation {

namespace {

constexpr long double microsecondsPerSecond = 1e6L;
constexpr long double twoToThe63 = 9223372036854775808.0L;
constexpr auto reference = static_cast<long double>(referenceDate.time_since_epoch().count());

} // namespace

double secondsSinceReferenceDate(Date date)
{
    const auto count = static_cast<long double>(date.time_since_epoch().count());
    return static_cast<double>((count - reference) / microsecondsPerSecond);
}

std::optional<Date> dateFromReferenceSeconds(double seconds)
{
    const auto count = std::round(static_cast<long double>(seconds) * microsecondsPerSecond + reference);
    if (!(count >= -twoToThe63 && count < twoToThe63)) { // NaN is neither
        return std::nullopt;
    }
    return Date(std::chrono::microseconds(static_cast<std::chrono::microseconds::rep>(count)));
}

Date currentDate()
{
    return std::chrono::time_point_cast<std::chrono::microseconds>(std::chrono::system_clock::now());
}

} // namespace foundation

// Dates as they are stored: counted from the reference date, 2001-01-01 00:00:00 UTC. Any thread.
#pragma once

#include <chrono>
#include <optional>

namespace foundation {

// An instant, exact to the microsecond.
using Date = std::chrono::sys_time<std::chrono::microseconds>;

inline constexpr Date referenceDate = std::chrono::sys_days(std::chrono::year(2001) / 1 / 1);

// Seconds since the reference date, negative before it. A date within 70 years of it comes back from
// dateFromReferenceSeconds() to the microsecond; farther away a double has no room for them.
double secondsSinceReferenceDate(Date date);

// The date so many seconds after the reference date, to the nearest microsecond; nothing for NaN, an
// infinity, and what lies some 290,000 years away or more.
std::optional<Date> dateFromReferenceSeconds(double seconds);

// The time of the system's clock.
Date currentDate();

} // namespace foundation

// The wall-clock time as the user's locale writes it.
#pragma once

#include <QString>

#include <chrono>

namespace foundation {

// Hour, minute and second of the local time in the form that the locale prefers, with its own digits and
// its own choice of 12 or 24 hours, and with neither date nor zone: "3:04:05 PM" in en_US, "15:04:05" in
// de_DE. The form is that of the Unicode skeleton "jms"; the locale is read from LC_ALL, LC_TIME and LANG,
// the first that is set, at the first call. Main thread.
QString localTimeText(std::chrono::system_clock::time_point time);

// The same for a time of day and a locale of one's own. `secondsOfDay` is 0 to 86,399; `localeName` is a
// POSIX locale name such as "de_DE.UTF-8". An unknown locale gives the root locale's form.
QString timeOfDayText(int secondsOfDay, const char *localeName);

} // namespace foundation

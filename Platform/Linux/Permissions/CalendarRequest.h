// One request for the user's calendar.
#pragma once

#include "Platform/Permissions.h"

#include <QDBusConnection>

#include <chrono>

namespace platform {

// Answers once: whether Evolution Data Server lists its sources to this program within the time. Nothing
// keeps others from the calendar of a user whose service lets them in, so that is full access. The bus starts
// a service that is not running. Returns at once. Main thread.
void askForCalendar(const QDBusConnection &bus, std::chrono::milliseconds patience,
                    Permissions::Answer answer);

} // namespace platform

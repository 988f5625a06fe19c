// A question to a service on the bus.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>
#include <functional>

class QObject;

namespace platform {

// Asks, and gives `next` the answer once, from the event loop: an error too, where there is no such service,
// it did not answer in time, or there is no bus. Not once `context` is gone, whose thread is this one. The
// bus starts a service that is installed.
void askService(const QDBusConnection &bus, const QDBusMessage &question, std::chrono::milliseconds patience,
                QObject *context, std::function<void(const QDBusMessage &answer)> next);

} // namespace platform

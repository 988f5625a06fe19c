#include "Platform/Linux/Idle/IdleClocks.h"
#include "Platform/Linux/Idle/PolledIdleClock.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace platform {

namespace {

constexpr int patience = 500; // milliseconds

struct BusClock
{
    const char *service;
    const char *path;
    const char *interface;
    const char *method;
};

constexpr BusClock mutter{"org.gnome.Mutter.IdleMonitor", "/org/gnome/Mutter/IdleMonitor/Core",
                          "org.gnome.Mutter.IdleMonitor", "GetIdletime"};
constexpr BusClock screenSaver{"org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver",
                               "org.freedesktop.ScreenSaver", "GetSessionIdleTime"};

PolledIdleClock::Reading read(const BusClock &clock)
{
    auto call = QDBusMessage::createMethodCall(
        QString::fromLatin1(clock.service), QString::fromLatin1(clock.path),
        QString::fromLatin1(clock.interface), QString::fromLatin1(clock.method));
    call.setAutoStartService(false);
    const auto answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    bool isNumber = false;
    const auto time = answer.arguments().value(0).toULongLong(&isNumber);
    const bool isAnswered = answer.type() == QDBusMessage::ReplyMessage && isNumber;
    return isAnswered ? PolledIdleClock::Reading(time) : std::nullopt;
}

std::unique_ptr<IdleClock> openClock(const BusClock &clock)
{
    if (!QDBusConnection::sessionBus().isConnected() || !read(clock)) {
        return nullptr;
    }
    return std::make_unique<PolledIdleClock>(QString::fromLatin1(clock.interface),
                                             [clock] { return read(clock); });
}

} // namespace

std::unique_ptr<IdleClock> openMutterClock()
{
    return openClock(mutter);
}

std::unique_ptr<IdleClock> openScreenSaverServiceClock()
{
    return openClock(screenSaver);
}

} // namespace platform

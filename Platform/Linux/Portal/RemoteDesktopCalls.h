// The names that the RemoteDesktop portal's calls are made of.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

namespace platform::remotedesktop {

inline constexpr auto serviceName = "org.freedesktop.portal.Desktop";
inline constexpr auto desktopPath = "/org/freedesktop/portal/desktop";
inline constexpr auto desktopInterface = "org.freedesktop.portal.RemoteDesktop";
inline constexpr auto requestInterface = "org.freedesktop.portal.Request";
inline constexpr auto sessionInterface = "org.freedesktop.portal.Session";
inline constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties";

inline constexpr unsigned keyboard = 1;
inline constexpr unsigned pointer = 2;

// A call to the desktop's own object. `service` is the portal's unique name once it is known, so that no
// other owner of the well-known name gets what was meant for this one.
[[nodiscard]] inline QDBusMessage desktopCall(const QString &service, const char *method,
                                              const char *interface = desktopInterface)
{
    return QDBusMessage::createMethodCall(service, QString::fromLatin1(desktopPath),
                                          QString::fromLatin1(interface), QString::fromLatin1(method));
}

// Where the portal puts the request or the session of a token: after the program's name on the bus, with what
// a path cannot have replaced.
[[nodiscard]] inline QString handlePath(const QDBusConnection &bus, const char *kind, const QString &token)
{
    auto sender = bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    return QStringLiteral("%1/%2/%3/%4")
        .arg(QString::fromLatin1(desktopPath), QString::fromLatin1(kind), sender, token);
}

// A call to close a request or a session.
[[nodiscard]] inline QDBusMessage closeCall(const QString &service, const QString &path,
                                            const char *interface)
{
    return QDBusMessage::createMethodCall(service, path, QString::fromLatin1(interface),
                                          QStringLiteral("Close"));
}

} // namespace platform::remotedesktop

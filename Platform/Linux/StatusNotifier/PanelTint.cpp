#include "Platform/Linux/StatusNotifier/PanelTint.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

namespace platform {

namespace {

constexpr int inkOpacity = 0xD9;

QString shell()
{
    return QStringLiteral("org.gnome.Shell");
}

QDBusMessage askForShell()
{
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    call << shell();
    return call;
}

} // namespace

PanelTint::PanelTint(const QDBusConnection &bus, const Appearance &appearance, QObject *parent)
    : QObject(parent)
    , appearance_(appearance)
{
    connect(&appearance, &Appearance::changed, this, &PanelTint::changed);
    auto *watcher = new QDBusServiceWatcher(shell(), bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { setIsShellThere(true); });
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] { setIsShellThere(false); });
    auto *pending = new QDBusPendingCallWatcher(bus.asyncCall(askForShell()), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *call) {
        call->deleteLater();
        const QDBusPendingReply<bool> reply = *call;
        setIsShellThere(reply.isValid() && reply.value());
    });
}

QColor PanelTint::ink() const
{
    const int tone = isShellThere_ || appearance_.values().isDark ? 255 : 0;
    return {tone, tone, tone, inkOpacity};
}

void PanelTint::setIsShellThere(bool isThere)
{
    if (isThere != isShellThere_) {
        isShellThere_ = isThere;
        Q_EMIT changed();
    }
}

} // namespace platform

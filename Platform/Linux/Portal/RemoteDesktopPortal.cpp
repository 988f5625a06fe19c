#include "Platform/Linux/Portal/RemoteDesktopPortal.h"

#include "Platform/Linux/Portal/RemoteDesktopCalls.h"

#include <QDBusReply>

#include <utility>

namespace platform {

using namespace remotedesktop;

namespace {

Obstacle noBus()
{
    return {QStringLiteral("No session bus answers."), QStringLiteral("Start it in a desktop session.")};
}

Obstacle noPortal()
{
    return {QStringLiteral("No desktop portal answers on the session bus."),
            QStringLiteral("Install xdg-desktop-portal and the desktop's own part of it.")};
}

Obstacle noRemoteDesktop()
{
    return {QStringLiteral("The desktop portal offers no remote desktop."),
            QStringLiteral("Install the desktop's own part of the portal, one with RemoteDesktop.")};
}

Obstacle noDevices()
{
    return {QStringLiteral("The desktop portal cannot control keyboard and pointer."),
            QStringLiteral("Use a desktop whose portal can.")};
}

// The portal is there, and may answer the next time.
bool isSilence(const QDBusError &error)
{
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

bool isAbsence(const QDBusError &error)
{
    return error.type() == QDBusError::ServiceUnknown ||
           error.name().startsWith(QLatin1String("org.freedesktop.DBus.Error.Spawn.")) ||
           error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

RemoteDesktopPortal::RemoteDesktopPortal(const QDBusConnection &bus)
    : bus_(bus)
    , watcher_(QString::fromLatin1(serviceName), bus_, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString & /*name*/, const QString & /*old*/, const QString &owner) {
                ownerChanged(owner);
            });
}

std::optional<Obstacle> RemoteDesktopPortal::absence() const
{
    return bus_.isConnected() ? absence_ : noBus();
}

void RemoteDesktopPortal::ask()
{
    if (question_ || description_ || absence()) {
        return;
    }
    auto call = desktopCall(QString::fromLatin1(serviceName), "GetAll", propertiesInterface);
    call << QString::fromLatin1(desktopInterface);
    question_ = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(question_, &QDBusPendingCallWatcher::finished, this, &RemoteDesktopPortal::takeAnswer);
}

void RemoteDesktopPortal::takeAnswer()
{
    auto *question = std::exchange(question_, nullptr);
    question->deleteLater();
    if (question->isError()) {
        explain(question->error());
    } else {
        describe(question->reply());
    }
    Q_EMIT answered();
}

void RemoteDesktopPortal::describe(const QDBusMessage &answer)
{
    const QDBusReply<QVariantMap> properties(answer);
    if (!properties.isValid() || !properties.value().contains(QStringLiteral("version"))) {
        absence_ = noRemoteDesktop();
        return;
    }
    const auto devices = properties.value().value(QStringLiteral("AvailableDeviceTypes")).toUInt();
    if ((devices & keyboard) == 0 || (devices & pointer) == 0) {
        absence_ = noDevices();
        return;
    }
    description_ =
        Description{answer.service(), properties.value().value(QStringLiteral("version")).toUInt()};
}

void RemoteDesktopPortal::explain(const QDBusError &error)
{
    if (!isSilence(error)) {
        absence_ = isAbsence(error) ? noPortal() : noRemoteDesktop();
    }
}

// The news of an owner may come after its answer.
void RemoteDesktopPortal::ownerChanged(const QString &newOwner)
{
    absence_.reset();
    if (description_ && description_->owner != newOwner) {
        description_.reset();
        Q_EMIT lost();
    }
}

} // namespace platform

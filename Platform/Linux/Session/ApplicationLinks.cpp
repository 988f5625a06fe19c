#include "Platform/Linux/Session/ApplicationLinks.h"

#include "Platform/Linux/Session/ApplicationIdentity.h"
#include "Platform/Linux/Session/BusApplicationLink.h"
#include "Platform/Linux/Session/SocketApplicationLink.h"

#include <QDir>
#include <QStandardPaths>

namespace platform {

namespace {

// Without a bus the display is what tells one session of the user's from another.
QString displayName()
{
    const auto wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    auto name = wayland.isEmpty() ? qEnvironmentVariable("DISPLAY") : wayland;
    return name.replace(QLatin1Char('/'), QLatin1Char('_'));
}

QString socketPath()
{
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
    return folder.filePath(applicationId() + QLatin1Char('-') + displayName());
}

} // namespace

std::unique_ptr<ApplicationLink> makeApplicationLink(const QString &launchToken)
{
    const auto bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        return std::make_unique<BusApplicationLink>(bus, launchToken);
    }
    return std::make_unique<SocketApplicationLink>(socketPath(), launchToken);
}

} // namespace platform

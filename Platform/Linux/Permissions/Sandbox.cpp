#include "Platform/Linux/Permissions/Sandbox.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace platform {

namespace {

// The variables alone say little: programs that a classic Snap starts, which is no sandbox, inherit them.
bool isStrictSnap(const QString &folder)
{
    QFile description(folder + QLatin1String("/meta/snap.yaml"));
    if (folder.isEmpty() || !description.open(QIODevice::ReadOnly)) {
        return false;
    }
    const auto lines = description.readAll().split('\n');
    return lines.contains("confinement: strict") || lines.contains("confinement: devmode");
}

QString snapName()
{
    const auto instance = qEnvironmentVariable("SNAP_INSTANCE_NAME");
    return instance.isEmpty() ? qEnvironmentVariable("SNAP_NAME") : instance;
}

} // namespace

std::optional<QString> sandboxedApplication(const QString &flatpakInfo)
{
    if (QFileInfo::exists(flatpakInfo)) {
        return QSettings(flatpakInfo, QSettings::IniFormat)
            .value(QStringLiteral("Application/name"))
            .toString();
    }
    if (isStrictSnap(qEnvironmentVariable("SNAP"))) {
        return QStringLiteral("snap.") + snapName();
    }
    return std::nullopt;
}

} // namespace platform

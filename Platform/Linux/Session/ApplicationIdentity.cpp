#include "Platform/Linux/Session/ApplicationIdentity.h"

#include <QGuiApplication>

namespace platform {

QString applicationId()
{
    return QGuiApplication::desktopFileName();
}

// As the desktop entry specification derives it.
QString applicationPath()
{
    auto path = applicationId();
    path.replace(QLatin1Char('.'), QLatin1Char('/')).replace(QLatin1Char('-'), QLatin1Char('_'));
    return QLatin1Char('/') + path;
}

} // namespace platform

#include "Platform/Linux/Session/ApplicationService.h"

namespace platform {

namespace {

QString waylandKey()
{
    return QStringLiteral("activation-token");
}

QString x11Key()
{
    return QStringLiteral("desktop-startup-id");
}

} // namespace

ApplicationService::ApplicationService(QObject *exported)
    : QDBusAbstractAdaptor(exported)
{}

void ApplicationService::Activate(const QVariantMap &platformData)
{
    Q_EMIT activated(activationTokenIn(platformData));
}

void ApplicationService::Open(const QStringList & /*uris*/, const QVariantMap &platformData)
{
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString &action, const QVariantList & /*parameters*/,
                                        const QVariantMap & /*platformData*/)
{
    if (action == QLatin1String("quit")) {
        Q_EMIT quitRequested();
    }
}

QString activationTokenIn(const QVariantMap &platformData)
{
    const auto token = platformData.value(waylandKey()).toString();
    return token.isEmpty() ? platformData.value(x11Key()).toString() : token;
}

QVariantMap platformDataWith(const QString &activationToken)
{
    if (activationToken.isEmpty()) {
        return {};
    }
    return {{waylandKey(), activationToken}, {x11Key(), activationToken}};
}

} // namespace platform

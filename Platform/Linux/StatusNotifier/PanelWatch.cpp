#include "Platform/Linux/StatusNotifier/PanelWatch.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace platform {

namespace {

QString watcherService()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString watcherPath()
{
    return QStringLiteral("/StatusNotifierWatcher");
}

QDBusMessage watcherCall(const QString &interface, const QString &method, const QVariantList &arguments)
{
    auto call = QDBusMessage::createMethodCall(watcherService(), watcherPath(), interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

} // namespace

PanelWatch::PanelWatch(QDBusConnection bus, QObject *parent)
    : QObject(parent)
    , bus_(std::move(bus))
{}

void PanelWatch::start()
{
    followWatcher();
    QMetaObject::invokeMethod(this, &PanelWatch::registerItem, Qt::QueuedConnection);
}

void PanelWatch::followWatcher()
{
    auto *watcher =
        new QDBusServiceWatcher(watcherService(), bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString & /*name*/, const QString & /*oldOwner*/, const QString &newOwner) {
                set(false, false);
                if (!newOwner.isEmpty()) {
                    registerItem();
                }
            });
    for (const auto *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        bus_.connect(watcherService(), watcherPath(), watcherService(), QString::fromLatin1(signal), this,
                     SLOT(askForHost()));
    }
}

void PanelWatch::registerItem()
{
    if (isRegistering_) {
        isLate_ = true;
        return;
    }
    isKnown_ = true;
    isRegistering_ = true;
    isLate_ = false;
    const auto call =
        watcherCall(watcherService(), QStringLiteral("RegisterStatusNotifierItem"), {bus_.baseService()});
    auto *pending = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, &PanelWatch::takeRegistration);
}

void PanelWatch::takeRegistration(QDBusPendingCallWatcher *call)
{
    call->deleteLater();
    isRegistering_ = false;
    if (!call->isError()) {
        set(true, hasHost_);
        askForHost();
    } else if (isLate_) {
        registerItem();
    }
}

void PanelWatch::askForHost()
{
    const auto call = watcherCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                                  {watcherService(), QStringLiteral("IsStatusNotifierHostRegistered")});
    auto *pending = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, &PanelWatch::takeHost);
}

void PanelWatch::takeHost(QDBusPendingCallWatcher *call)
{
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *call;
    set(hasWatcher_, reply.isError() || reply.value().variant().toBool());
}

void PanelWatch::set(bool hasWatcher, bool hasHost)
{
    const bool wasWatched = isWatched();
    hasWatcher_ = hasWatcher;
    hasHost_ = hasHost;
    if (isWatched() != wasWatched) {
        Q_EMIT changed();
    }
}

} // namespace platform

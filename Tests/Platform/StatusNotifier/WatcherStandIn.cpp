#include "Tests/Platform/StatusNotifier/WatcherStandIn.h"

#include "Tests/Support/Eventually.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include <utility>

namespace testsupport {

namespace {

QString watcherName()
{
    return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString itemInterface()
{
    return QStringLiteral("org.kde.StatusNotifierItem");
}

QString itemPath()
{
    return QStringLiteral("/StatusNotifierItem");
}

} // namespace

WatcherStandIn::WatcherStandIn(QDBusConnection bus, bool hasHost)
    : bus_(std::move(bus))
    , hasHost_(hasHost)
{
    bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this, QDBusConnection::ExportAllContents);
    bus_.registerService(watcherName());
}

WatcherStandIn::~WatcherStandIn()
{
    bus_.unregisterService(watcherName());
    bus_.unregisterObject(QStringLiteral("/StatusNotifierWatcher"));
}

void WatcherStandIn::setHasHost(bool hasHost)
{
    hasHost_ = hasHost;
    if (hasHost) {
        Q_EMIT StatusNotifierHostRegistered();
    } else {
        Q_EMIT StatusNotifierHostUnregistered();
    }
}

SeenItem::SeenItem(QDBusConnection bus, QString service)
    : bus_(std::move(bus))
    , service_(std::move(service))
{
    bus_.connect(service_, itemPath(), itemInterface(), QStringLiteral("NewIcon"), this, SLOT(takeNewIcon()));
}

QVariant SeenItem::property(const char *name)
{
    const auto values = ask(itemPath(), QStringLiteral("org.freedesktop.DBus.Properties"), "Get",
                            {itemInterface(), QString::fromLatin1(name)});
    return values.isEmpty() ? QVariant() : values.first().value<QDBusVariant>().variant();
}

QVariantList SeenItem::call(const char *method, const QVariantList &arguments)
{
    return ask(itemPath(), itemInterface(), method, arguments);
}

QVariantList SeenItem::callMenu(const char *method, const QVariantList &arguments)
{
    return ask(QStringLiteral("/MenuBar"), QStringLiteral("com.canonical.dbusmenu"), method, arguments);
}

QVariantList SeenItem::ask(const QString &path, const QString &interface, const char *method,
                           const QVariantList &arguments)
{
    auto call = QDBusMessage::createMethodCall(service_, path, interface, QString::fromLatin1(method));
    call.setArguments(arguments);
    const auto pending = bus_.asyncCall(call);
    static_cast<void>(eventually([&pending] { return pending.isFinished(); }));
    const auto reply = pending.reply();
    lastError_ = reply.errorName();
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments() : QVariantList();
}

} // namespace testsupport

#include "Tests/Support/PortalBackend.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDir>
#include <QFile>

namespace testsupport {

namespace {

const QString busName = QStringLiteral("org.freedesktop.impl.portal.desktop.stirratest");
const QString objectPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interfaceName = QStringLiteral("org.freedesktop.impl.portal.RemoteDesktop");
const QString desktopName = QStringLiteral("stirratest");

QVariantMap properties()
{
    return {{QStringLiteral("AvailableDeviceTypes"), 7U}, {QStringLiteral("version"), 1U}};
}

} // namespace

PortalBackend::PortalBackend(const PrivateBus &bus)
    : bus_(bus.connect())
{
    isOpen_ = bus_.registerVirtualObject(objectPath, this, QDBusConnection::SubPath) &&
              bus_.registerService(busName);
}

PortalBackend::~PortalBackend()
{
    bus_.unregisterObject(objectPath, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(bus_.name());
}

bool PortalBackend::announce(const QString &folder, QProcessEnvironment &environment)
{
    QFile file(folder + QStringLiteral("/stirratest.portal"));
    const auto text = QStringLiteral("[portal]\nDBusName=%1\nInterfaces=%2;\nUseIn=%3\n")
                          .arg(busName, interfaceName, desktopName);
    environment.insert(QStringLiteral("XDG_DESKTOP_PORTAL_DIR"), folder);
    environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), desktopName);
    return QDir().mkpath(folder) && file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0;
}

QString PortalBackend::introspect(const QString & /*path*/) const
{
    return {};
}

bool PortalBackend::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/)
{
    const auto method = message.member();
    if (message.interface() == QLatin1String("org.freedesktop.DBus.Properties")) {
        return handleProperties(message);
    }
    if (method == QLatin1String("Close")) {
        closedCount_ += message.path() == sessionPath_ ? 1 : 0;
        return bus_.send(message.createReply());
    }
    if (message.interface() != interfaceName) {
        return false;
    }
    if (method == QLatin1String("CreateSession")) {
        return reply(message, Answer::grant);
    }
    if (method == QLatin1String("SelectDevices")) {
        const auto options = qdbus_cast<QVariantMap>(message.arguments().value(3));
        deviceTypes_ = options.value(QStringLiteral("types")).toUInt();
        return reply(message, Answer::grant);
    }
    if (method == QLatin1String("Start")) {
        ++questionCount_;
        sessionPath_ = message.arguments().value(1).value<QDBusObjectPath>().path();
        return reply(message, answer_, {{QStringLiteral("devices"), deviceTypes_}});
    }
    return takeInput(message);
}

bool PortalBackend::handleProperties(const QDBusMessage &message)
{
    const auto arguments = message.arguments();
    if (arguments.value(0).toString() != interfaceName) {
        return false;
    }
    if (message.member() == QLatin1String("GetAll")) {
        return bus_.send(message.createReply(properties()));
    }
    const auto value = properties().value(arguments.value(1).toString());
    return bus_.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
}

bool PortalBackend::reply(const QDBusMessage &message, Answer answer, const QVariantMap &results)
{
    const bool isGranted = answer == Answer::grant;
    const unsigned code = isGranted ? 0 : 1;
    return bus_.send(message.createReply(QVariantList{code, isGranted ? results : QVariantMap()}));
}

bool PortalBackend::takeInput(const QDBusMessage &message)
{
    if (inputFunction_) {
        const auto arguments = message.arguments();
        inputFunction_({message.member(), arguments.mid(2), qdbus_cast<QVariantMap>(arguments.value(1)),
                        message.isReplyRequired()});
    }
    return !message.isReplyRequired() || bus_.send(message.createReply());
}

void PortalBackend::closeSession()
{
    bus_.send(QDBusMessage::createSignal(sessionPath_, QStringLiteral("org.freedesktop.impl.portal.Session"),
                                         QStringLiteral("Closed")));
}

} // namespace testsupport

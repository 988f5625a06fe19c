#include "Tests/Support/AccessibilityBus.h"

#include "Tests/Support/Eventually.h"

#include <QDBusMessage>
#include <QUuid>

namespace testsupport {

namespace {

QString addressFrom(const QDBusConnection &bus)
{
    const auto call =
        QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    const auto answer = bus.call(call);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toString() : QString();
}

bool hasRegistry(const QDBusConnection &bus)
{
    const auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("/org/a11y/atspi/accessible/root"),
        QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    return bus.call(call).type() == QDBusMessage::ReplyMessage;
}

} // namespace

AccessibilityBus::AccessibilityBus(const PrivateRuntime &runtime, const PrivateBus &bus)
    : launcher_(QStringLiteral("/usr/libexec/at-spi-bus-launcher"),
                {QStringLiteral("--launch-immediately"), QStringLiteral("--a11y=1")}, runtime.environment())
{
    const auto session = bus.connect();
    const bool hasAddress = eventually([this, &session] {
        address_ = addressFrom(session);
        return !address_.isEmpty() || !launcher_.isRunning();
    });
    if (hasAddress && !address_.isEmpty()) {
        const auto accessibility = connect();
        isOpen_ = eventually([&accessibility] { return hasRegistry(accessibility); });
        QDBusConnection::disconnectFromBus(accessibility.name());
    }
    QDBusConnection::disconnectFromBus(session.name());
}

QDBusConnection AccessibilityBus::connect() const
{
    return QDBusConnection::connectToBus(address_, QUuid::createUuid().toString());
}

} // namespace testsupport

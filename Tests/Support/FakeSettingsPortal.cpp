#include "Tests/Support/FakeSettingsPortal.h"

#include "Tests/Support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

namespace testsupport {

namespace {

using Settings = QMap<QString, QVariantMap>;

QString serviceName()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString objectPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

QString interfaceName()
{
    return QStringLiteral("org.freedesktop.portal.Settings");
}

} // namespace

FakeSettingsPortal::FakeSettingsPortal(const PrivateBus &bus)
    : bus_(bus.connect())
{
    qDBusRegisterMetaType<Settings>();
    isOpen_ = bus_.registerVirtualObject(objectPath(), this) && bus_.registerService(serviceName());
}

FakeSettingsPortal::~FakeSettingsPortal()
{
    bus_.unregisterObject(objectPath());
    QDBusConnection::disconnectFromBus(bus_.name());
}

void FakeSettingsPortal::set(const QString &group, const QString &key, const QVariant &value)
{
    settings_[group][key] = value;
    auto signal = QDBusMessage::createSignal(objectPath(), interfaceName(), QStringLiteral("SettingChanged"));
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    bus_.send(signal);
}

void FakeSettingsPortal::setAccent(double red, double green, double blue)
{
    QDBusArgument color;
    color.beginStructure();
    color << red << green << blue;
    color.endStructure();
    set(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("accent-color"),
        QVariant::fromValue(color));
}

QString FakeSettingsPortal::introspect(const QString & /*path*/) const
{
    return {};
}

// No groups, or an empty one, means all.
QVariant FakeSettingsPortal::readAll(const QStringList &groups) const
{
    Settings wanted;
    for (auto group = settings_.begin(); group != settings_.end(); ++group) {
        if (groups.isEmpty() || groups.contains(QString()) || groups.contains(group.key())) {
            wanted.insert(group.key(), group.value());
        }
    }
    return QVariant::fromValue(wanted);
}

bool FakeSettingsPortal::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.interface() != interfaceName()) {
        return false;
    }
    const auto arguments = message.arguments();
    if (message.member() == QLatin1String("ReadAll")) {
        ++readCount_;
        return connection.send(message.createReply(readAll(arguments.value(0).toStringList())));
    }
    const auto value = settings_.value(arguments.value(0).toString()).value(arguments.value(1).toString());
    if (message.member() == QLatin1String("Read") && value.isValid()) {
        ++readCount_;
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
    }
    return connection.send(message.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                                                    QStringLiteral("Requested setting not found")));
}

} // namespace testsupport

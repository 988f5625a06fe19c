#include "Tests/Platform/StatusNotifier/SeenValues.h"

#include <QDBusMetaType>

namespace testsupport {

const QDBusArgument &operator>>(const QDBusArgument &argument, SeenPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SeenNode &node)
{
    argument.beginStructure();
    argument >> node.id >> node.properties >> node.children;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SeenProperties &item)
{
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const SentEvent &event)
{
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, SentEvent &event)
{
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

QVariant sent(const QList<SentEvent> &events)
{
    qDBusRegisterMetaType<SentEvent>();
    qDBusRegisterMetaType<QList<SentEvent>>();
    return QVariant::fromValue(events);
}

} // namespace testsupport

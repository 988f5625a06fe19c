// Pictures and menus as a panel reads them from the bus.
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QVariantMap>

namespace testsupport {

// (iiay): the size in pixels, and 4 bytes a pixel, alpha, red, green, blue.
struct SeenPixmap
{
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

// (ia{sv}av): an item with its properties and the items below it.
struct SeenNode
{
    int id = 0;
    QVariantMap properties;
    QList<QDBusVariant> children; // of SeenNode
};

// (ia{sv})
struct SeenProperties
{
    int id = 0;
    QVariantMap properties;
};

// (isvu): the item, "clicked" or another name, a value that goes with it, the time of the user's act. This
// one is what a panel sends.
struct SentEvent
{
    int id = 0;
    QString name;
    QDBusVariant data = QDBusVariant(0);
    uint timestamp = 0;
};

const QDBusArgument &operator>>(const QDBusArgument &argument, SeenPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, SeenNode &node);
const QDBusArgument &operator>>(const QDBusArgument &argument, SeenProperties &item);
QDBusArgument &operator<<(QDBusArgument &argument, const SentEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, SentEvent &event);

// For EventGroup.
[[nodiscard]] QVariant sent(const QList<SentEvent> &events);

} // namespace testsupport

Q_DECLARE_METATYPE(testsupport::SentEvent)

// A menu as it travels to a panel.
#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QVariantMap>

namespace platform {

// (ia{sv}av): an item with its properties and the items below it.
struct MenuNode
{
    int id = 0;
    QVariantMap properties;
    QList<QDBusVariant> children; // of MenuNode
};

// (ia{sv})
struct MenuNodeProperties
{
    int id = 0;
    QVariantMap properties;
};

// (isvu): the item, "clicked" or another name, a value that goes with it, the time of the user's act.
struct MenuEvent
{
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const MenuNode &node);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuNode &node);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuNodeProperties &item);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuNodeProperties &item);
QDBusArgument &operator<<(QDBusArgument &argument, const MenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, MenuEvent &event);

// Makes the types known to Qt's bus; as often as wanted.
void registerMenuTypes();

} // namespace platform

Q_DECLARE_METATYPE(platform::MenuNode)
Q_DECLARE_METATYPE(platform::MenuNodeProperties)
Q_DECLARE_METATYPE(platform::MenuEvent)

// com.canonical.dbusmenu on the session bus.
#pragma once

#include "Platform/Linux/StatusNotifier/MenuNodes.h"
#include "Platform/StatusItem.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>

namespace platform {

inline constexpr auto menuPath = "/MenuBar";
// What panels understand as an item without a menu.
inline constexpr auto noMenuPath = "/NO_DBUSMENU";

// A menu without submenus, exported for the object it is made for; item 0 is its root. Items never get an id
// that others had before, so that a click on a menu that was replaced meanwhile does nothing. Main thread.
class MenuService final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")

    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    explicit MenuService(QObject *exported);

    void setItems(std::vector<StatusMenuItem> items);

    [[nodiscard]] uint version() const { return 3; }
    [[nodiscard]] QString textDirection() const;
    [[nodiscard]] QString status() const { return QStringLiteral("normal"); }
    [[nodiscard]] QStringList iconThemePath() const { return {}; }

public Q_SLOTS:
    // The revision of the layout below the item; no names of properties means all, a depth of 0 no children.
    [[nodiscard]] uint GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                                 platform::MenuNode &layout) const;
    // Of all items where no id is given.
    [[nodiscard]] QList<platform::MenuNodeProperties>
    GetGroupProperties(const QList<int> &ids, const QStringList &propertyNames) const;
    [[nodiscard]] QDBusVariant GetProperty(int id, const QString &name) const;
    // "clicked" runs the item's action, from the event loop, so that it may do anything.
    void Event(int id, const QString &name, const QDBusVariant &data, uint timestamp);
    // The ids that there are not.
    QList<int> EventGroup(const QList<platform::MenuEvent> &events);
    // Whether the layout has to be read again: never, as every change is announced.
    [[nodiscard]] bool AboutToShow(int /*id*/) const { return false; }
    [[nodiscard]] QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors) const;

Q_SIGNALS:
    void ItemsPropertiesUpdated(const QList<platform::MenuNodeProperties> &updated,
                                const QList<platform::MenuNodeProperties> &removed);
    void LayoutUpdated(uint revision, int parentId);
    void ItemActivationRequested(int id, uint timestamp);

private:
    [[nodiscard]] bool has(int id) const;
    [[nodiscard]] const StatusMenuItem *find(int id) const; // null for the root too
    [[nodiscard]] QList<int> itemIds() const;
    [[nodiscard]] QVariantMap propertiesOf(int id, const QStringList &names) const;
    void run(int id);

    std::vector<StatusMenuItem> items_;
    int firstId_ = 1;
    uint revision_ = 1;
};

} // namespace platform

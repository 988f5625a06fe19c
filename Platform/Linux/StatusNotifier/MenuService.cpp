#include "Platform/Linux/StatusNotifier/MenuService.h"

#include <QGuiApplication>

#include <numeric>

namespace platform {

namespace {

constexpr int rootId = 0;

// An underscore would mark the next letter as the one to press.
QString labelOf(const StatusMenuItem &item)
{
    return QString::fromStdString(item.title).replace(QLatin1Char('_'), QLatin1String("__"));
}

QVariantMap allPropertiesOf(const StatusMenuItem &item)
{
    if (item.title.empty()) {
        return {{QStringLiteral("type"), QStringLiteral("separator")}};
    }
    QVariantMap properties{{QStringLiteral("label"), labelOf(item)},
                           {QStringLiteral("enabled"), item.isEnabled}};
    if (item.isChecked) {
        properties.insert(QStringLiteral("toggle-type"), QStringLiteral("checkmark"));
        properties.insert(QStringLiteral("toggle-state"), *item.isChecked ? 1 : 0);
    }
    return properties;
}

} // namespace

MenuService::MenuService(QObject *exported)
    : QDBusAbstractAdaptor(exported)
{
    registerMenuTypes();
}

void MenuService::setItems(std::vector<StatusMenuItem> items)
{
    firstId_ += static_cast<int>(items_.size());
    items_ = std::move(items);
    ++revision_;
    Q_EMIT LayoutUpdated(revision_, rootId);
}

QString MenuService::textDirection() const
{
    return QGuiApplication::layoutDirection() == Qt::RightToLeft ? QStringLiteral("rtl")
                                                                 : QStringLiteral("ltr");
}

uint MenuService::GetLayout(int parentId, int recursionDepth, const QStringList &propertyNames,
                            MenuNode &layout) const
{
    layout.id = parentId;
    layout.properties = propertiesOf(parentId, propertyNames);
    if (parentId == rootId && recursionDepth != 0) {
        for (const int id : itemIds()) {
            const MenuNode child{id, propertiesOf(id, propertyNames), {}};
            layout.children.append(QDBusVariant(QVariant::fromValue(child)));
        }
    }
    return revision_;
}

QList<MenuNodeProperties> MenuService::GetGroupProperties(const QList<int> &ids,
                                                          const QStringList &propertyNames) const
{
    QList<MenuNodeProperties> group;
    for (const int id : ids.isEmpty() ? itemIds() : ids) {
        if (has(id)) {
            group.append({id, propertiesOf(id, propertyNames)});
        }
    }
    return group;
}

QDBusVariant MenuService::GetProperty(int id, const QString &name) const
{
    return QDBusVariant(propertiesOf(id, {}).value(name, QString()));
}

void MenuService::Event(int id, const QString &name, const QDBusVariant & /*data*/, uint /*timestamp*/)
{
    if (name == QLatin1String("clicked")) {
        QMetaObject::invokeMethod(
            this, [this, id] { run(id); }, Qt::QueuedConnection);
    }
}

QList<int> MenuService::EventGroup(const QList<MenuEvent> &events)
{
    QList<int> errors;
    for (const auto &event : events) {
        Event(event.id, event.name, event.data, event.timestamp);
        if (!has(event.id)) {
            errors.append(event.id);
        }
    }
    return errors;
}

QList<int> MenuService::AboutToShowGroup(const QList<int> &ids, QList<int> &idErrors) const
{
    idErrors = ids;
    idErrors.removeIf([this](int id) { return has(id); });
    return {};
}

bool MenuService::has(int id) const
{
    return id == rootId || find(id);
}

const StatusMenuItem *MenuService::find(int id) const
{
    const auto index = static_cast<std::size_t>(id - firstId_);
    return id >= firstId_ && index < items_.size() ? &items_[index] : nullptr;
}

QList<int> MenuService::itemIds() const
{
    QList<int> ids(static_cast<qsizetype>(items_.size()));
    std::iota(ids.begin(), ids.end(), firstId_);
    return ids;
}

QVariantMap MenuService::propertiesOf(int id, const QStringList &names) const
{
    QVariantMap properties;
    if (id == rootId) {
        properties.insert(QStringLiteral("children-display"), QStringLiteral("submenu"));
    } else if (const auto *item = find(id)) {
        properties = allPropertiesOf(*item);
    }
    if (!names.isEmpty()) {
        properties.removeIf([&names](const auto &property) { return !names.contains(property.key()); });
    }
    return properties;
}

void MenuService::run(int id)
{
    const auto *item = find(id);
    if (item && item->isEnabled && item->action) {
        const auto action = item->action; // which may replace the items
        action();
    }
}

} // namespace platform

#include "Platform/Linux/StatusNotifier/NotifierStatusItem.h"

#include <QUuid>

#include <utility>

namespace platform {

std::shared_ptr<StatusItem> NotifierStatusItem::create(const StatusItemIdentity &identity,
                                                       const Appearance &appearance)
{
    const auto bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QUuid::createUuid().toString());
    return bus.isConnected() ? std::make_shared<NotifierStatusItem>(bus, identity, appearance) : nullptr;
}

NotifierStatusItem::NotifierStatusItem(const QDBusConnection &bus, const StatusItemIdentity &identity,
                                       const Appearance &appearance)
    : bus_(bus)
    , item_(*new NotifierItem(identity, &itemObject_))
    , menu_(*new MenuService(&menuObject_))
    , tint_(bus, appearance)
    , watch_(bus)
{
    item_.setInk(tint_.ink());
    QObject::connect(&tint_, &PanelTint::changed, &tint_, [this] { updateInk(); });
    QObject::connect(&watch_, &PanelWatch::changed, &watch_, [this] { announceIcon(); });
    bus_.registerObject(QStringLiteral("/StatusNotifierItem"), &itemObject_, QDBusConnection::ExportAdaptors);
    bus_.registerObject(QLatin1String(menuPath), &menuObject_, QDBusConnection::ExportAdaptors);
    watch_.start();
}

NotifierStatusItem::~NotifierStatusItem()
{
    QDBusConnection::disconnectFromBus(bus_.name());
}

void NotifierStatusItem::setMenu(std::vector<StatusMenuItem> items)
{
    const bool hasMenu = !items.empty();
    menu_.setItems(std::move(items));
    if (hasMenu != item_.hasMenu()) {
        item_.setHasMenu(hasMenu);
        Q_EMIT item_.NewMenu();
    }
}

void NotifierStatusItem::setImage(const TemplateImage &image)
{
    if (image != item_.image()) {
        item_.setImage(image);
        announceIcon();
    }
}

void NotifierStatusItem::setClickHandler(std::function<void(const StatusClick &)> handler)
{
    item_.setClickHandler(std::move(handler));
}

void NotifierStatusItem::updateInk()
{
    if (const auto ink = tint_.ink(); ink != item_.ink()) {
        item_.setInk(ink);
        announceIcon();
    }
}

void NotifierStatusItem::announceIcon()
{
    if (watch_.isWatched()) {
        Q_EMIT item_.NewIcon();
    }
}

} // namespace platform

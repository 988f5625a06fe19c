#include "Platform/Linux/StatusNotifier/NotifierStatusItem.h"

#include <QUuid>

#include <utility>

namespace platform {

namespace {

QDBusConnection newConnection()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QUuid::createUuid().toString());
}

} // namespace

std::shared_ptr<StatusItem> NotifierStatusItem::create(const StatusItemIdentity &identity,
                                                       const Appearance &appearance)
{
    const auto bus = newConnection();
    return bus.isConnected() ? std::make_shared<NotifierStatusItem>(bus, identity, appearance) : nullptr;
}

NotifierStatusItem::NotifierStatusItem(const QDBusConnection &bus, const StatusItemIdentity &identity,
                                       const Appearance &appearance)
    : item_(*new NotifierItem(identity, &itemObject_))
    , menu_(*new MenuService(&menuObject_))
    , tint_(QDBusConnection::sessionBus(), appearance)
{
    item_.setInk(tint_.ink());
    QObject::connect(&tint_, &PanelTint::changed, &tint_, [this] { updateInk(); });
    join(bus);
}

NotifierStatusItem::~NotifierStatusItem()
{
    leave();
}

void NotifierStatusItem::join(const QDBusConnection &bus)
{
    auto own = bus;
    own.registerObject(QStringLiteral("/StatusNotifierItem"), &itemObject_, QDBusConnection::ExportAdaptors);
    own.registerObject(QLatin1String(menuPath), &menuObject_, QDBusConnection::ExportAdaptors);
    watch_ = std::make_unique<PanelWatch>(bus);
    QObject::connect(watch_.get(), &PanelWatch::changed, watch_.get(), [this] { announceIcon(); });
    watch_->start();
}

void NotifierStatusItem::leave()
{
    const auto name = watch_->bus().name();
    watch_.reset();
    QDBusConnection::disconnectFromBus(name);
}

void NotifierStatusItem::joinAgain()
{
    if (!watch_->isKnown()) {
        return;
    }
    if (const auto bus = newConnection(); bus.isConnected()) {
        leave();
        join(bus);
    }
}

void NotifierStatusItem::setMenu(std::vector<StatusMenuItem> items)
{
    const bool hasMenu = !items.empty();
    menu_.setItems(std::move(items));
    if (hasMenu != item_.hasMenu()) {
        item_.setHasMenu(hasMenu);
        joinAgain();
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
    const bool wasMenu = item_.isMenu();
    item_.setClickHandler(std::move(handler));
    if (item_.isMenu() != wasMenu) {
        joinAgain();
    }
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
    if (watch_->isWatched()) {
        Q_EMIT item_.NewIcon();
    }
}

} // namespace platform

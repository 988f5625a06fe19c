#include "Platform/Linux/StatusNotifier/NotifierStatusItem.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// A bus that is started anew is there after a moment; one that stays away costs next to nothing.
constexpr std::chrono::seconds firstPause(1);
constexpr std::chrono::seconds longestPause(60);

} // namespace

std::shared_ptr<StatusItem> NotifierStatusItem::create(const StatusItemIdentity &identity,
                                                       const Appearance &appearance)
{
    auto bus = BusConnection::openSession();
    return bus ? std::make_shared<NotifierStatusItem>(std::move(bus), identity, appearance) : nullptr;
}

NotifierStatusItem::Presence::Presence(std::unique_ptr<BusConnection> connection, NotifierItem &exportedItem,
                                       MenuService &exportedMenu)
    : bus(std::move(connection))
    , item(exportedItem.exportOn(*bus))
    , menu(exportedMenu.exportOn(*bus))
    , watch(*bus)
{}

NotifierStatusItem::NotifierStatusItem(std::unique_ptr<BusConnection> bus, const StatusItemIdentity &identity,
                                       const Appearance &appearance)
    : item_(identity)
    , tint_(appearance)
    , pause_(firstPause)
{
    nextJoin_.setSingleShot(true);
    QObject::connect(&nextJoin_, &QTimer::timeout, &tint_, [this] {
        if (!joinNow()) {
            joinLater();
        }
    });
    item_.setInk(tint_.ink());
    QObject::connect(&tint_, &PanelTint::changed, &tint_, [this] { updateInk(); });
    join(std::move(bus));
}

void NotifierStatusItem::join(std::unique_ptr<BusConnection> bus)
{
    tint_.leave();
    nextJoin_.stop();
    presence_ = std::make_unique<Presence>(std::move(bus), item_, menu_);
    QObject::connect(&presence_->watch, &PanelWatch::changed, &tint_, [this] { announceIcon(); });
    QObject::connect(presence_->bus.get(), &BusConnection::caughtUp, &tint_, [this] {
        if (presence_->isIconDue) {
            announceIcon();
        }
    });
    QObject::connect(presence_->bus.get(), &BusConnection::ended, &tint_, [this] {
        if (presence_->bus->wasLetIn()) {
            pause_ = firstPause;
        }
        joinLater(); // the connection is still at work here
    });
    tint_.follow(*presence_->bus);
}

bool NotifierStatusItem::joinNow()
{
    auto bus = BusConnection::openSession();
    if (!bus) {
        return false;
    }
    join(std::move(bus));
    return true;
}

// Who has not read the item yet reads it as it is then.
void NotifierStatusItem::joinAgain()
{
    if (presence_->watch.isKnown()) {
        static_cast<void>(joinNow());
    }
}

void NotifierStatusItem::joinLater()
{
    nextJoin_.start(pause_);
    pause_ = std::min(2 * pause_, longestPause);
}

void NotifierStatusItem::setMenu(std::vector<StatusMenuItem> items)
{
    const bool hasMenu = !items.empty();
    menu_.setItems(std::move(items));
    menu_.announceLayout(*presence_->bus);
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
    presence_->isIconDue = presence_->watch.isWatched();
    if (presence_->isIconDue && !presence_->bus->isBehind()) {
        presence_->isIconDue = false;
        NotifierItem::announceIcon(*presence_->bus);
    }
}

} // namespace platform

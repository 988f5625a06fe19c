// An item in the panel of a Linux desktop.
#pragma once

#include "Platform/Linux/StatusNotifier/MenuService.h"
#include "Platform/Linux/StatusNotifier/NotifierItem.h"
#include "Platform/Linux/StatusNotifier/PanelTint.h"
#include "Platform/Linux/StatusNotifier/PanelWatch.h"

#include <QTimer>

#include <chrono>

namespace platform {

// Speaks the StatusNotifierItem protocol over a bus connection of its own, where its object's path is that
// which all panels look for. Panels read the picture when NewIcon tells them to; without a panel nothing is
// sent, and a bus that hangs is told of the last picture only, when it goes on. What panels read but once,
// whether there is a menu, takes effect by leaving and joining again. It also joins again, sooner or later,
// where the bus has ended and there is another one at its address.
class NotifierStatusItem final : public StatusItem, private StatusButton
{
public:
    // Nothing where there is no session bus. REQUIRES: the appearance outlives the item.
    [[nodiscard]] static std::shared_ptr<StatusItem> create(const StatusItemIdentity &identity,
                                                            const Appearance &appearance);

    NotifierStatusItem(std::unique_ptr<BusConnection> bus, const StatusItemIdentity &identity,
                       const Appearance &appearance);

    StatusButton *button() override { return this; }
    void setMenu(std::vector<StatusMenuItem> items) override;

private:
    // What there is of the item on one connection.
    struct Presence
    {
        Presence(std::unique_ptr<BusConnection> connection, NotifierItem &exportedItem,
                 MenuService &exportedMenu);

        std::unique_ptr<BusConnection> bus;
        BusSlot item;
        BusSlot menu;
        PanelWatch watch;
        bool isIconDue = false; // as soon as the bus has caught up
    };

    void setImage(const TemplateImage &image) override;
    void setClickHandler(std::function<void(const StatusClick &)> handler) override;

    void join(std::unique_ptr<BusConnection> bus);
    [[nodiscard]] bool joinNow(); // whether there is a bus
    void joinAgain();
    void joinLater();
    void updateInk();
    void announceIcon();

    NotifierItem item_;
    MenuService menu_;
    std::unique_ptr<Presence> presence_;
    PanelTint tint_;
    QTimer nextJoin_; // while the bus is away
    std::chrono::seconds pause_;
};

} // namespace platform

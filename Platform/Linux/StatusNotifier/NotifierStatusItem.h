// An item in the panel of a Linux desktop.
#pragma once

#include "Platform/Linux/StatusNotifier/MenuService.h"
#include "Platform/Linux/StatusNotifier/NotifierItem.h"
#include "Platform/Linux/StatusNotifier/PanelTint.h"
#include "Platform/Linux/StatusNotifier/PanelWatch.h"

namespace platform {

// Speaks the StatusNotifierItem protocol over a bus connection of its own, where its object's path is that
// which all panels look for. Panels read the picture when NewIcon tells them to; without a panel nothing is
// sent. What panels read but once, whether there is a menu, takes effect by leaving and joining again.
class NotifierStatusItem final : public StatusItem, private StatusButton
{
public:
    // Nothing where there is no session bus. REQUIRES: the appearance outlives the item.
    [[nodiscard]] static std::shared_ptr<StatusItem> create(const StatusItemIdentity &identity,
                                                            const Appearance &appearance);

    NotifierStatusItem(const QDBusConnection &bus, const StatusItemIdentity &identity,
                       const Appearance &appearance);
    ~NotifierStatusItem() override;

    StatusButton *button() override { return this; }
    void setMenu(std::vector<StatusMenuItem> items) override;

private:
    void setImage(const TemplateImage &image) override;
    void setClickHandler(std::function<void(const StatusClick &)> handler) override;

    void join(const QDBusConnection &bus);
    void leave();
    void joinAgain();
    void updateInk();
    void announceIcon();

    QObject itemObject_;
    QObject menuObject_;
    NotifierItem &item_; // of itemObject_
    MenuService &menu_;  // of menuObject_
    PanelTint tint_;
    std::unique_ptr<PanelWatch> watch_;
};

} // namespace platform

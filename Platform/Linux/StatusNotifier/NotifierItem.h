// org.kde.StatusNotifierItem on the session bus.
#pragma once

#include "Platform/Linux/Bus/BusConnection.h"
#include "Platform/Linux/Bus/BusValues.h"
#include "Platform/MenuBarServices.h"

#include <QColor>

namespace platform {

// The pictures are computed when a panel reads them, into the message that takes them there. Main thread.
class NotifierItem final : public QObject
{
public:
    using ClickHandler = std::function<void(const StatusClick &)>;

    explicit NotifierItem(StatusItemIdentity identity);

    // Is there from now on, for as long as the slot is kept. REQUIRES: the item outlives the slot.
    [[nodiscard]] BusSlot exportOn(BusConnection &bus);
    static void announceIcon(BusConnection &bus);

    // Nobody is told of what is set here.
    void setImage(const TemplateImage &image) { image_ = image; }
    void setInk(const QColor &ink) { ink_ = ink; }
    void setHasMenu(bool hasMenu) { hasMenu_ = hasMenu; }
    void setClickHandler(ClickHandler handler) { clickHandler_ = std::move(handler); }

    [[nodiscard]] const TemplateImage &image() const { return image_; }
    [[nodiscard]] QColor ink() const { return ink_; }
    [[nodiscard]] bool hasMenu() const { return hasMenu_; }
    // Whether a click opens the menu.
    [[nodiscard]] bool isMenu() const { return hasMenu_ && !clickHandler_; }

    // The properties.
    void category(BusWriter &value) const { value.add("ApplicationStatus"); }
    void id(BusWriter &value) const { value.add(identity_.id); }
    void title(BusWriter &value) const { value.add(identity_.title); }
    void status(BusWriter &value) const { value.add("Active"); }
    void windowId(BusWriter &value) const { value.add(0); }
    void noText(BusWriter &value) const { value.add(""); }
    void menu(BusWriter &value) const;
    void itemIsMenu(BusWriter &value) const { value.add(isMenu()); }
    void iconPixmap(BusWriter &value) const;
    void noPixmap(BusWriter &value) const;
    void toolTip(BusWriter &value) const;

    // What the user did, at a place of the screen. Only the click has a meaning here: the menu is for the
    // panel to show. The handler is called from the event loop, so that it may do anything.
    void activate(BusReader &arguments, BusWriter &answer);
    void ignore(BusReader &arguments, BusWriter &answer);
    // Comes before the click that it belongs to.
    void takeActivationToken(BusReader &arguments, BusWriter &answer);

private:
    StatusItemIdentity identity_;
    TemplateImage image_;
    QColor ink_ = Qt::black;
    bool hasMenu_ = false;
    ClickHandler clickHandler_;
    std::string token_;
};

} // namespace platform

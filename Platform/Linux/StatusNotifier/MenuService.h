// com.canonical.dbusmenu on the session bus.
#pragma once

#include "Platform/Linux/Bus/BusConnection.h"
#include "Platform/Linux/StatusNotifier/MenuProperties.h"

namespace platform {

inline constexpr auto menuPath = "/MenuBar";
// What panels understand as an item without a menu.
inline constexpr auto noMenuPath = "/NO_DBUSMENU";

// A menu without submenus; item 0 is its root. Items never get an id that others had before, so that a click
// on a menu that was replaced meanwhile does nothing. Main thread.
class MenuService final : public QObject
{
public:
    // Is there from now on, for as long as the slot is kept. REQUIRES: the menu outlives the slot.
    [[nodiscard]] BusSlot exportOn(BusConnection &bus);
    void announceLayout(BusConnection &bus) const;

    // Nobody is told of it here.
    void setItems(std::vector<StatusMenuItem> items);

    // The properties.
    void version(BusWriter &value) const { value.add(3U); }
    void textDirection(BusWriter &value) const;
    void status(BusWriter &value) const { value.add("normal"); }
    void iconThemePath(BusWriter &value) const;

    // The revision, and the layout below an item; no names of properties means all, a depth of 0 no children.
    void getLayout(BusReader &arguments, BusWriter &answer);
    // Of all items where no id is given.
    void getGroupProperties(BusReader &arguments, BusWriter &answer);
    void getProperty(BusReader &arguments, BusWriter &answer);
    // "clicked" runs the item's action, from the event loop, so that it may do anything.
    void handleEvent(BusReader &arguments, BusWriter &answer);
    // The ids that there are not.
    void handleEvents(BusReader &arguments, BusWriter &answer);
    // Whether the layout has to be read again: never, as every change is announced.
    void aboutToShow(BusReader &arguments, BusWriter &answer);
    void aboutToShowGroup(BusReader &arguments, BusWriter &answer);

private:
    using Names = std::vector<std::string_view>;

    [[nodiscard]] bool has(int id) const;
    [[nodiscard]] const StatusMenuItem *find(int id) const; // null for the root too
    [[nodiscard]] std::vector<int> itemIds() const;
    [[nodiscard]] MenuProperties propertiesOf(int id) const;
    void addNode(BusWriter &answer, int id, const Names &names, bool hasChildren) const;
    [[nodiscard]] int takeEvent(BusReader &arguments);
    void run(int id);

    std::vector<StatusMenuItem> items_;
    int firstId_ = 1;
    unsigned revision_ = 1;
};

} // namespace platform

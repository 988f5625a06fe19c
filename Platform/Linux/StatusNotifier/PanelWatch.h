// Whether a panel shows the items of programs.
#pragma once

#include "Platform/Linux/Bus/BusName.h"

namespace platform {

// Registers the item of a bus connection, which is the object "/StatusNotifierItem" there, with
// org.kde.StatusNotifierWatcher, and again with each new one. Main thread; never waits for anybody.
class PanelWatch final : public QObject
{
    Q_OBJECT

public:
    // Registers from the next turn of the event loop on. REQUIRES: the connection outlives it, and the item
    // is exported then.
    explicit PanelWatch(BusConnection &bus);

    // Whether it has tried to register the item.
    [[nodiscard]] bool isKnown() const { return isKnown_; }
    // Whether a watcher has the item, and some panel shows it. What a watcher does not say, or
    // not in time, counts as a yes.
    [[nodiscard]] bool isWatched() const { return hasWatcher_ && hasHost_; }

Q_SIGNALS:
    void changed();

private:
    void registerItem();
    void askForHost();
    int takeRegistration(sd_bus_message *answer);
    int takeHostChange(sd_bus_message *signal);
    int takeHost(sd_bus_message *answer);
    void set(bool hasWatcher, bool hasHost);

    BusConnection &bus_;
    BusName watcher_;
    BusSlot hostComes_;
    BusSlot hostGoes_;
    BusSlot registration_; // of the watcher that is there now
    BusSlot hostQuestion_;
    bool isKnown_ = false;
    bool hasWatcher_ = false;
    bool hasHost_ = false;
};

} // namespace platform

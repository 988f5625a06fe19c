// What the bus library hands out, let go of when it is no longer needed.
#pragma once

#include <systemd/sd-bus.h>

#include <memory>

namespace platform {

struct BusRelease
{
    // Says nothing any more, and waits for nobody.
    void operator()(sd_bus *bus) const { sd_bus_close_unref(bus); }
    void operator()(sd_bus_message *message) const { sd_bus_message_unref(message); }
    // Whatever the slot stands for, an exported object or an answer that is waited for, ends.
    void operator()(sd_bus_slot *slot) const { sd_bus_slot_unref(slot); }
};

template <class Object> using BusPointer = std::unique_ptr<Object, BusRelease>;
using BusMessage = BusPointer<sd_bus_message>;
using BusSlot = BusPointer<sd_bus_slot>;

} // namespace platform

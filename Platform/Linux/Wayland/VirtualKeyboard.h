// A keyboard of the program's own on a Wayland seat, for keys without a meaning.
#pragma once

#include "Platform/Linux/Wayland/SeatSilentKeys.h"

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace platform {

// Has the keymap that the seat's other keyboards have: the compositor tells it to the focused client, which
// then sees no change of the layout. The compositor makes it the seat's current keyboard when it comes, so it
// comes with the first key. Everything is queued; the caller flushes. Main thread.
class VirtualKeyboard
{
public:
    // REQUIRES: the seat outlives it.
    VirtualKeyboard(WaylandObject<zwp_virtual_keyboard_manager_v1> manager, const SeatKeyboard &seat);

    [[nodiscard]] SeatSilentKeys &silentKeys() { return silentKeys_; }
    // Presses and releases a key. False where there is no way to tell the keymap. REQUIRES:
    // silentKeys() gave it.
    bool type(std::uint16_t evdevCode);

private:
    [[nodiscard]] bool sendKeymap();

    const SeatKeyboard &seat_;
    SeatSilentKeys silentKeys_;
    WaylandObject<zwp_virtual_keyboard_manager_v1> manager_;
    WaylandObject<zwp_virtual_keyboard_v1> keyboard_;
    QByteArray sentKeymapText_;
};

} // namespace platform

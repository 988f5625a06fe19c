#include "Platform/Linux/Wayland/VirtualKeyboard.h"

#include "Platform/Linux/Wayland/VirtualKeymap.h"
#include "Platform/Linux/Wayland/WaylandTime.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>

namespace platform {

VirtualKeyboard::VirtualKeyboard(WaylandObject<zwp_virtual_keyboard_manager_v1> manager,
                                 const SeatKeyboard &seat)
    : seat_(seat)
    , silentKeys_(seat)
    , manager_(std::move(manager))
{}

bool VirtualKeyboard::type(std::uint16_t evdevCode)
{
    if (silentKeys_.keymapText() != sentKeymapText_ && !sendKeymap()) {
        return false;
    }
    for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED}) {
        zwp_virtual_keyboard_v1_key(keyboard_.get(), waylandTime(), evdevCode, state);
    }
    return true;
}

bool VirtualKeyboard::sendKeymap()
{
    if (!keyboard_) {
        keyboard_.reset(
            zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager_.get(), seat_.seat()));
    }
    const bool isSent = platform::sendKeymap(keyboard_.get(), silentKeys_.keymapText());
    if (isSent) {
        sentKeymapText_ = silentKeys_.keymapText();
    }
    return isSent;
}

} // namespace platform

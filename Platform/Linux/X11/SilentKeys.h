// Keys that the running keymap gives no meaning, to carry the key events that must do nothing.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <cstdint>
#include <optional>

namespace platform {

// The X key code (8 above the evdev code) of the silent key that carries a virtual key code; a key to which
// the running keymap gives a symbol or a modifier is passed over. The keymap is asked at every call, since
// the user may remap the keyboard at any time. Nothing where no key is free, and for another virtual key
// code.
[[nodiscard]] std::optional<xcb_keycode_t> silentKeyCode(XConnection &connection,
                                                         std::uint16_t virtualKeyCode);

} // namespace platform

// Keys that the running keymap gives no meaning, to carry the key events that must do nothing.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <cstdint>
#include <optional>
#include <span>

namespace platform {

// The X key code that carries a virtual key code which is posted alone: 55 and 54 (the Command keys) are
// carried by the keys F24 and F19 of the evdev keymaps (X key codes 202 and 197), with the spare KEY_UNKNOWN
// (248) where the running keymap gives one of them a symbol or a modifier. All 98 evdev layouts of
// xkb-data 2.35.1 leave the three without a symbol. The keymap is asked at every call, since the user may
// remap the keyboard at any time. Nothing for another virtual key code, and where no candidate is free.
[[nodiscard]] std::optional<xcb_keycode_t> silentKeyCode(XConnection &connection,
                                                         std::uint16_t virtualKeyCode);

// The first of the candidates that is not in `usedKeyCodes`; nothing where all are.
[[nodiscard]] std::optional<xcb_keycode_t> firstFreeKeyCode(std::span<const xcb_keycode_t> candidates,
                                                            std::span<const xcb_keycode_t> usedKeyCodes);

} // namespace platform

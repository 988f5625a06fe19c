// The keyboards of an X server.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <cstdint>
#include <vector>

namespace platform {

// A keyboard's number.
using XKeyboard = std::uint16_t;

// The one that the keys of all others end up in.
inline constexpr XKeyboard coreKeyboard = 0x100;

// Starts the keyboard extension on a connection, and XInput 2: what asks for keyboards and keymaps needs
// them. False where the server lacks one.
[[nodiscard]] bool startKeyboardExtensions(XConnection &connection);

// The keyboards whose keys end up in the core keyboard: the user's, and the one that XTEST posts through.
// REQUIRES: startKeyboardExtensions().
[[nodiscard]] std::vector<XKeyboard> attachedKeyboards(XConnection &connection);

} // namespace platform

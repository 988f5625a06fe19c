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

struct AttachedKeyboard
{
    XKeyboard number = 0;
    bool isXtest = false; // the one that XTEST posts through; else a user's own
};

// The keyboards whose keys end up in the core keyboard. REQUIRES: startKeyboardExtensions().
[[nodiscard]] std::vector<AttachedKeyboard> attachedKeyboards(XConnection &connection);

} // namespace platform

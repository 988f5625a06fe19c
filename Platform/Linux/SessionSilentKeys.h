// The session's keys without a meaning, for ways to post that cannot ask the keymap themselves.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace platform {

// Gives the evdev code of the key that carries a virtual key code, by the keymap of this moment; nothing
// where no key is free, and for another virtual key code. Main thread of a Qt application.
using SilentKeySource = std::function<std::optional<std::uint16_t>(std::uint16_t virtualKeyCode)>;

// Asks the compositor of a Wayland session, or else the X server, over a connection of its own that is made
// at the first use and made anew when it is lost. Waits at most 200 ms for a compositor. Where nobody
// answers, no key counts as used.
[[nodiscard]] SilentKeySource sessionSilentKeys();

} // namespace platform

// The keys of the kernel and the virtual key codes of the common Apple keyboard table, one to one.
#pragma once

#include <cstdint>
#include <optional>

namespace platform {

// A key that the table lacks (Print Screen, Pause, most media keys) has the evdev code and this, which is
// beyond the table.
inline constexpr std::uint16_t codeOfUnlistedKeys = 0x100;

// The virtual key code of a key, by its evdev code (0 to KEY_MAX). Any thread.
[[nodiscard]] std::uint16_t virtualKeyCodeOf(std::uint16_t evdevCode);

// The other way round; nothing for a code that no key has.
[[nodiscard]] std::optional<std::uint16_t> evdevCodeOf(std::uint16_t virtualKeyCode);

} // namespace platform

// The keys that carry the key events that must do nothing, whatever the way they are posted.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

namespace platform {

// The evdev code of the key that carries a virtual key code which is posted alone: 55 and 54 (the Command
// keys) are carried by F24 (194) and F19 (189), with the spare KEY_UNKNOWN (240) where `isUsed` says that the
// running keymap gives one of them a meaning. All 98 evdev layouts of xkb-data 2.35.1 leave the three without
// a symbol. Nothing for another virtual key code, and where all are used.
[[nodiscard]] std::optional<std::uint16_t>
chooseSilentKey(std::uint16_t virtualKeyCode, const std::function<bool(std::uint16_t evdevCode)> &isUsed);

// The codes that can be chosen; the lowest and the highest.
inline constexpr std::array<std::uint16_t, 3> silentKeyCodes{189, 194, 240};
inline constexpr std::uint16_t lowestSilentKey = 189;
inline constexpr std::uint16_t highestSilentKey = 240;

// X and xkb count the keys from 8 on.
inline constexpr std::uint16_t xkbCodeOfEvdev = 8;

} // namespace platform

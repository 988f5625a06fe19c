// Keymaps as text, in the format that the compositor and its clients exchange.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

// Which of the keys that may be silent mean something: they have a symbol on any level of any layout, or do
// something to the modifiers or the layout. Evdev codes. Nothing where the text is no keymap.
[[nodiscard]] std::optional<std::vector<std::uint16_t>> keysWithMeaning(const QByteArray &keymapText);

// The keymap that the environment and the system's defaults describe; empty where none is installed.
[[nodiscard]] QByteArray defaultKeymapText();

} // namespace platform

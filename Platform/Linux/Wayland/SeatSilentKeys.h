// Keys to which the keymap of a Wayland seat gives no meaning.
#pragma once

#include "Platform/Linux/Wayland/SeatKeyboard.h"

#include <optional>
#include <vector>

namespace platform {

// Main thread.
class SeatSilentKeys
{
public:
    // REQUIRES: the seat outlives it.
    explicit SeatSilentKeys(const SeatKeyboard &seat);

    // The key that carries a virtual key code, by the seat's keymap of this moment, or the system's default
    // where the seat has none.
    [[nodiscard]] std::optional<std::uint16_t> silentKey(std::uint16_t virtualKeyCode);
    // The keymap that the last key was chosen by; empty before the first.
    [[nodiscard]] const QByteArray &keymapText() const { return keymapText_; }

private:
    [[nodiscard]] bool readKeymap();

    const SeatKeyboard &seat_;
    QByteArray keymapText_;
    std::vector<std::uint16_t> keysWithMeaning_; // by that keymap
};

} // namespace platform

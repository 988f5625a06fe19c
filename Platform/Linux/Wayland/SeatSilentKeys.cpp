#include "Platform/Linux/Wayland/SeatSilentKeys.h"

#include "Platform/Linux/SilentKeyChoice.h"
#include "Platform/Linux/Wayland/Keymap.h"

#include <algorithm>

namespace platform {

SeatSilentKeys::SeatSilentKeys(const SeatKeyboard &seat)
    : seat_(seat)
{}

std::optional<std::uint16_t> SeatSilentKeys::silentKey(std::uint16_t virtualKeyCode)
{
    const auto isUsed = [this](std::uint16_t key) {
        return !readKeymap() || std::ranges::find(keysWithMeaning_, key) != keysWithMeaning_.end();
    };
    return chooseSilentKey(virtualKeyCode, isUsed);
}

bool SeatSilentKeys::readKeymap()
{
    auto text = seat_.keymapText();
    if (text.isEmpty()) {
        text = keymapText_.isEmpty() ? defaultKeymapText() : keymapText_;
    }
    if (text == keymapText_) {
        return !text.isEmpty();
    }
    const auto keys = keysWithMeaning(text);
    if (!keys) {
        return false;
    }
    keymapText_ = std::move(text);
    keysWithMeaning_ = *keys;
    return true;
}

} // namespace platform

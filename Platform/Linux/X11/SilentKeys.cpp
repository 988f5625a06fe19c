#include "Platform/Linux/X11/SilentKeys.h"

#include <algorithm>
#include <array>
#include <vector>

namespace platform {

namespace {

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;

// An evdev code is 8 below the X key code.
constexpr xcb_keycode_t keyF19 = 189 + 8;
constexpr xcb_keycode_t keyF24 = 194 + 8;
constexpr xcb_keycode_t keyUnknown = 240 + 8;

std::array<xcb_keycode_t, 3> candidatesFor(std::uint16_t virtualKeyCode)
{
    if (virtualKeyCode == leftCommand) {
        return {keyF24, keyUnknown, keyF19};
    }
    return {keyF19, keyUnknown, keyF24};
}

using KeyCodes = std::vector<xcb_keycode_t>;

// The key codes from F19 to KEY_UNKNOWN that have a symbol in any group and level.
bool addKeyCodesWithSymbol(XConnection &connection, xcb_get_keyboard_mapping_cookie_t cookie, KeyCodes &used)
{
    const auto mapping = xReply(xcb_get_keyboard_mapping_reply, connection.get(), cookie);
    if (!mapping || mapping->keysyms_per_keycode == 0) {
        return false;
    }
    const std::span symbols(xcb_get_keyboard_mapping_keysyms(mapping.get()),
                            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(mapping.get())));
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        if (symbols[i] != XCB_NO_SYMBOL) {
            used.push_back(static_cast<xcb_keycode_t>(keyF19 + i / mapping->keysyms_per_keycode));
        }
    }
    return true;
}

bool addModifierKeyCodes(XConnection &connection, xcb_get_modifier_mapping_cookie_t cookie, KeyCodes &used)
{
    const auto mapping = xReply(xcb_get_modifier_mapping_reply, connection.get(), cookie);
    if (!mapping) {
        return false;
    }
    const auto *codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    used.insert(used.end(), codes, codes + xcb_get_modifier_mapping_keycodes_length(mapping.get()));
    return true;
}

std::optional<KeyCodes> usedKeyCodes(XConnection &connection)
{
    auto *x = connection.get();
    const auto keys = xcb_get_keyboard_mapping_unchecked(x, keyF19, keyUnknown - keyF19 + 1);
    const auto modifiers = xcb_get_modifier_mapping_unchecked(x);
    KeyCodes used;
    const bool hasKeys = addKeyCodesWithSymbol(connection, keys, used);
    const bool hasModifiers = addModifierKeyCodes(connection, modifiers, used);
    return hasKeys && hasModifiers ? std::optional(used) : std::nullopt;
}

} // namespace

std::optional<xcb_keycode_t> firstFreeKeyCode(std::span<const xcb_keycode_t> candidates,
                                              std::span<const xcb_keycode_t> usedKeyCodes)
{
    const auto isFree = [&](xcb_keycode_t code) {
        return std::ranges::find(usedKeyCodes, code) == usedKeyCodes.end();
    };
    const auto found = std::ranges::find_if(candidates, isFree);
    return found == candidates.end() ? std::nullopt : std::optional(*found);
}

std::optional<xcb_keycode_t> silentKeyCode(XConnection &connection, std::uint16_t virtualKeyCode)
{
    if (virtualKeyCode != leftCommand && virtualKeyCode != rightCommand) {
        return std::nullopt;
    }
    const auto used = usedKeyCodes(connection);
    return used ? firstFreeKeyCode(candidatesFor(virtualKeyCode), *used) : std::nullopt;
}

} // namespace platform

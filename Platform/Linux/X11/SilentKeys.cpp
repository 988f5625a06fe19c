#include "Platform/Linux/X11/SilentKeys.h"

#include "Platform/Linux/SilentKeyChoice.h"

#include <algorithm>
#include <span>
#include <vector>

namespace platform {

namespace {

constexpr xcb_keycode_t lowest = lowestSilentKey + xkbCodeOfEvdev;
constexpr xcb_keycode_t highest = highestSilentKey + xkbCodeOfEvdev;

using KeyCodes = std::vector<xcb_keycode_t>;

// The key codes from the lowest to the highest that have a symbol in any group and level.
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
            used.push_back(static_cast<xcb_keycode_t>(lowest + i / mapping->keysyms_per_keycode));
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
    const auto keys = xcb_get_keyboard_mapping_unchecked(x, lowest, highest - lowest + 1);
    const auto modifiers = xcb_get_modifier_mapping_unchecked(x);
    KeyCodes used;
    const bool hasKeys = addKeyCodesWithSymbol(connection, keys, used);
    const bool hasModifiers = addModifierKeyCodes(connection, modifiers, used);
    return hasKeys && hasModifiers ? std::optional(used) : std::nullopt;
}

} // namespace

std::optional<xcb_keycode_t> silentKeyCode(XConnection &connection, std::uint16_t virtualKeyCode)
{
    const auto isUsed = [&connection](std::uint16_t evdevCode) {
        const auto used = usedKeyCodes(connection);
        return !used || std::ranges::find(*used, evdevCode + xkbCodeOfEvdev) != used->end();
    };
    const auto key = chooseSilentKey(virtualKeyCode, isUsed);
    return key ? std::optional(static_cast<xcb_keycode_t>(*key + xkbCodeOfEvdev)) : std::nullopt;
}

} // namespace platform

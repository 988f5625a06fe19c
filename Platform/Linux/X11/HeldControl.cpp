#include "Platform/Linux/X11/HeldControl.h"

#include "Platform/Linux/X11/XKeyboards.h"
#include "Platform/Linux/X11/Xkb.h"

#include <xcb/xtest.h>

#include <span>
#include <vector>

namespace platform {

namespace {

// The modifier map's rows: Shift, Lock, Control and so on.
constexpr std::size_t controlRow = 2;

bool isControlHeld(XConnection &connection)
{
    const auto state = xReply(xcb_xkb_get_state_reply, connection.get(),
                              xcb_xkb_get_state_unchecked(connection.get(), coreKeyboard));
    return state && (state->baseMods & XCB_MOD_MASK_CONTROL) != 0;
}

std::vector<xcb_keycode_t> heldControlKeys(XConnection &connection)
{
    auto *x = connection.get();
    const auto modifiers = xReply(xcb_get_modifier_mapping_reply, x, xcb_get_modifier_mapping_unchecked(x));
    const auto keys = xReply(xcb_query_keymap_reply, x, xcb_query_keymap_unchecked(x));
    if (!modifiers || !keys) {
        return {};
    }
    const std::span codes(
        xcb_get_modifier_mapping_keycodes(modifiers.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifiers.get())));
    const std::size_t width = modifiers->keycodes_per_modifier;
    std::vector<xcb_keycode_t> held;
    for (const auto code : codes.subspan(controlRow * width, width)) {
        if (code != 0 && (keys->keys[code / 8] >> (code % 8) & 1) != 0) { // NOLINT
            held.push_back(code);
        }
    }
    return held;
}

} // namespace

void letGoOfControl(XConnection &connection)
{
    if (!isControlHeld(connection)) {
        return;
    }
    for (const auto key : heldControlKeys(connection)) {
        xcb_test_fake_input(connection.get(), XCB_KEY_RELEASE, key, XCB_CURRENT_TIME, connection.rootWindow(),
                            0, 0, 0);
    }
}

} // namespace platform

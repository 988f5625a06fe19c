#include "Platform/Linux/X11/HeldControl.h"

#include "Platform/Linux/X11/Xkb.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <span>
#include <utility>

namespace platform {

namespace {

// The modifier map's rows: Shift, Lock, Control and so on.
constexpr std::size_t controlRow = 2;

} // namespace

void HeldControl::release()
{
    if (!isHeldAt(coreKeyboard)) {
        return;
    }
    for (const auto key : heldKeys()) {
        post(XCB_KEY_RELEASE, key);
        released_.push_back(key);
    }
    holders_ = holders(); // what XTEST held, it holds no more
}

// Where no keyboard holds it on, it was held through XTEST, and whoever did so has not let go.
void HeldControl::restore()
{
    const auto holds = [this](XKeyboard keyboard) { return isHeldAt(keyboard); };
    const bool isHeld = holders_.empty() || std::ranges::any_of(holders_, holds);
    for (const auto key : std::exchange(released_, {})) {
        if (isHeld) {
            post(XCB_KEY_PRESS, key);
        }
    }
}

bool HeldControl::isHeldAt(XKeyboard keyboard)
{
    const auto state = xReply(xcb_xkb_get_state_reply, connection_.get(),
                              xcb_xkb_get_state_unchecked(connection_.get(), keyboard));
    return state && (state->baseMods & XCB_MOD_MASK_CONTROL) != 0;
}

std::vector<xcb_keycode_t> HeldControl::heldKeys()
{
    auto *x = connection_.get();
    const auto modifiers = xReply(xcb_get_modifier_mapping_reply, x, xcb_get_modifier_mapping_unchecked(x));
    const auto keys = xReply(xcb_query_keymap_reply, x, xcb_query_keymap_unchecked(x));
    std::vector<xcb_keycode_t> held;
    if (!modifiers || !keys) {
        return held;
    }
    const std::span codes(
        xcb_get_modifier_mapping_keycodes(modifiers.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifiers.get())));
    const std::size_t width = modifiers->keycodes_per_modifier;
    for (const auto code : codes.subspan(controlRow * width, width)) {
        if (code != 0 && (keys->keys[code / 8] >> (code % 8) & 1) != 0) { // NOLINT
            held.push_back(code);
        }
    }
    return held;
}

std::vector<XKeyboard> HeldControl::holders()
{
    auto keyboards = attachedKeyboards(connection_);
    std::erase_if(keyboards, [this](XKeyboard keyboard) { return !isHeldAt(keyboard); });
    return keyboards;
}

void HeldControl::post(std::uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, connection_.rootWindow(), 0, 0, 0);
}

} // namespace platform

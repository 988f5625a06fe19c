#include "Platform/Linux/X11/HeldControl.h"

#include "Platform/Linux/X11/Xkb.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <span>

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
    noteHolders();
    noteHeldKeys();
    for (const auto key : released_) {
        post(XCB_KEY_RELEASE, key);
    }
}

void HeldControl::restore()
{
    const auto holds = [this](XKeyboard keyboard) { return isHeldAt(keyboard); };
    if (isHeldByXtest_ || std::ranges::any_of(holders_, holds)) {
        for (const auto key : released_) {
            post(XCB_KEY_PRESS, key);
        }
    }
    released_.clear();
}

bool HeldControl::isHeldAt(XKeyboard keyboard)
{
    const auto state = xReply(xcb_xkb_get_state_reply, connection_.get(),
                              xcb_xkb_get_state_unchecked(connection_.get(), keyboard));
    return state && (state->baseMods & XCB_MOD_MASK_CONTROL) != 0;
}

void HeldControl::noteHolders()
{
    for (const auto &keyboard : attachedKeyboards(connection_)) {
        if (isHeldAt(keyboard.number) && keyboard.isXtest) {
            isHeldByXtest_ = true;
        } else if (isHeldAt(keyboard.number)) {
            holders_.insert(keyboard.number);
        }
    }
}

void HeldControl::noteHeldKeys()
{
    auto *x = connection_.get();
    const auto modifiers = xReply(xcb_get_modifier_mapping_reply, x, xcb_get_modifier_mapping_unchecked(x));
    const auto keys = xReply(xcb_query_keymap_reply, x, xcb_query_keymap_unchecked(x));
    if (!modifiers || !keys) {
        return;
    }
    const std::span codes(
        xcb_get_modifier_mapping_keycodes(modifiers.get()),
        static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(modifiers.get())));
    const std::size_t width = modifiers->keycodes_per_modifier;
    for (const auto code : codes.subspan(controlRow * width, width)) {
        if (code != 0 && (keys->keys[code / 8] >> (code % 8) & 1) != 0) { // NOLINT
            released_.insert(code);
        }
    }
}

void HeldControl::post(std::uint8_t type, xcb_keycode_t key)
{
    xcb_test_fake_input(connection_.get(), type, key, XCB_CURRENT_TIME, connection_.rootWindow(), 0, 0, 0);
}

} // namespace platform

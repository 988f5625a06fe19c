#include "Tests/Support/Wayland/WaylandUser.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <QTemporaryFile>

#include <cstdlib>

namespace testsupport {

namespace {

constexpr std::uint32_t xkbCodeOfEvdev = 8;

void sendKeymap(zwp_virtual_keyboard_v1 *keyboard, const QByteArray &text)
{
    QTemporaryFile file;
    static_cast<void>(file.open());
    file.write(text.constData(), text.size() + 1);
    file.flush();
    zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.handle(),
                                   static_cast<std::uint32_t>(text.size()) + 1);
}

} // namespace

QByteArray WaylandUser::keymapOfLayout(const char *layout)
{
    auto *context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
    const xkb_rule_names names{"evdev", "pc105", layout, nullptr, nullptr};
    auto *keymap = xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
    auto *text = xkb_keymap_get_as_string(keymap, XKB_KEYMAP_FORMAT_TEXT_V1);
    const QByteArray copy(text);
    std::free(text); // NOLINT
    xkb_keymap_unref(keymap);
    xkb_context_unref(context);
    return copy;
}

WaylandUser::WaylandUser(const QString &display, const QByteArray &keymap)
    : client_(display)
    , seat_(client_.bind<wl_seat>(wl_seat_interface, 1))
    , manager_(client_.bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1))
    , keyboard_(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager_, seat_))
    , context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
    , keymap_(xkb_keymap_new_from_string(context_, keymap.constData(), XKB_KEYMAP_FORMAT_TEXT_V1,
                                         XKB_KEYMAP_COMPILE_NO_FLAGS))
    , state_(xkb_state_new(keymap_))
{
    sendKeymap(keyboard_, keymap);
    client_.sync();
}

WaylandUser::~WaylandUser()
{
    zwp_virtual_keyboard_v1_destroy(keyboard_);
    zwp_virtual_keyboard_manager_v1_destroy(manager_);
    wl_seat_destroy(seat_);
    client_.drain();
    xkb_state_unref(state_);
    xkb_keymap_unref(keymap_);
    xkb_context_unref(context_);
}

void WaylandUser::type(std::uint32_t evdevCode)
{
    press(evdevCode);
    release(evdevCode);
}

void WaylandUser::send(std::uint32_t evdevCode, std::uint32_t state)
{
    const auto direction = state == WL_KEYBOARD_KEY_STATE_PRESSED ? XKB_KEY_DOWN : XKB_KEY_UP;
    zwp_virtual_keyboard_v1_key(keyboard_, ++time_, evdevCode, state);
    if (xkb_state_update_key(state_, evdevCode + xkbCodeOfEvdev, direction) != 0) {
        zwp_virtual_keyboard_v1_modifiers(keyboard_,
                                          xkb_state_serialize_mods(state_, XKB_STATE_MODS_DEPRESSED),
                                          xkb_state_serialize_mods(state_, XKB_STATE_MODS_LATCHED),
                                          xkb_state_serialize_mods(state_, XKB_STATE_MODS_LOCKED),
                                          xkb_state_serialize_layout(state_, XKB_STATE_LAYOUT_EFFECTIVE));
    }
    client_.sync();
}

} // namespace testsupport

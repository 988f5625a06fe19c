// The hands of a user at the keyboard of a private Wayland compositor.
#pragma once

#include "Tests/Support/Wayland/WaylandClient.h"

#include <xkbcommon/xkbcommon.h>

#include <QByteArray>

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace testsupport {

// A keyboard with a keymap of its own, which is the seat's current one from the first key on. The compositor
// has handled everything when a call returns.
class WaylandUser
{
public:
    // The keyboard of a layout: "de" for instance.
    [[nodiscard]] static QByteArray keymapOfLayout(const char *layout);

    // REQUIRES: the compositor offers virtual keyboards.
    WaylandUser(const QString &display, const QByteArray &keymap);
    WaylandUser(const WaylandUser &) = delete;
    WaylandUser &operator=(const WaylandUser &) = delete;
    ~WaylandUser();

    // Presses and releases a key, by its evdev code.
    void type(std::uint32_t evdevCode);
    void press(std::uint32_t evdevCode) { send(evdevCode, WL_KEYBOARD_KEY_STATE_PRESSED); }
    void release(std::uint32_t evdevCode) { send(evdevCode, WL_KEYBOARD_KEY_STATE_RELEASED); }

private:
    void send(std::uint32_t evdevCode, std::uint32_t state);

    WaylandClient client_;
    wl_seat *seat_;
    zwp_virtual_keyboard_manager_v1 *manager_;
    zwp_virtual_keyboard_v1 *keyboard_;
    xkb_context *context_;
    xkb_keymap *keymap_;
    xkb_state *state_;
    std::uint32_t time_ = 0;
};

} // namespace testsupport

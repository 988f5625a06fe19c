#include "Tests/Support/XUser.h"

#include <xcb/xtest.h>

#include <vector>

namespace testsupport {

void XUser::press(std::initializer_list<xcb_keysym_t> keys) const
{
    std::vector<xcb_keycode_t> held;
    for (const auto key : keys) {
        if (const auto code = keyCodeOf(key)) {
            post(XCB_KEY_PRESS, code);
            held.push_back(code);
        }
    }
    for (; !held.empty(); held.pop_back()) {
        post(XCB_KEY_RELEASE, held.back());
    }
    x_.sync();
}

void XUser::type(const QByteArray &text) const
{
    for (const char letter : text) {
        press({static_cast<xcb_keysym_t>(letter)}); // the symbols of ASCII are its codes
    }
}

void XUser::click(QPoint place, std::uint8_t button) const
{
    post(XCB_MOTION_NOTIFY, 0, place);
    post(XCB_BUTTON_PRESS, button);
    post(XCB_BUTTON_RELEASE, button);
    x_.sync();
}

// The keymap is asked each time: tests change it.
xcb_keycode_t XUser::keyCodeOf(xcb_keysym_t symbol) const
{
    const auto *setup = xcb_get_setup(x_.get());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto mapping =
        xAnswer(xcb_get_keyboard_mapping_reply, x_.get(), xcb_get_keyboard_mapping(x_.get(), first, count));
    for (int i = 0; mapping && i < count; ++i) {
        if (xcb_get_keyboard_mapping_keysyms(mapping.get())[i * mapping->keysyms_per_keycode] == symbol) {
            return static_cast<xcb_keycode_t>(first + i);
        }
    }
    return 0;
}

void XUser::post(std::uint8_t type, std::uint8_t detail, QPoint place) const
{
    xcb_test_fake_input(x_.get(), type, detail, XCB_CURRENT_TIME, x_.root(),
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 0);
}

} // namespace testsupport

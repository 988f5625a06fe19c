// The hands of a user at the keyboard and pointer of a private X server.
#pragma once

#include "Tests/Support/XClient.h"

#include <QPoint>

#include <initializer_list>

namespace testsupport {

// Posts through XTEST at once; the server has handled everything when a call returns. Keys are named by key
// symbols (X11/keysym.h) that the running keymap gives some key without a modifier; others are left out.
class XUser
{
public:
    // REQUIRES: the client outlives it.
    explicit XUser(const XClient &x)
        : x_(x)
    {}

    // Presses the keys one after the other, and releases them the other way round: {XK_Control_L, XK_q}.
    void press(std::initializer_list<xcb_keysym_t> keys) const;
    // Types lower case letters, digits and what else needs no modifier.
    void type(const QByteArray &text) const;
    // Moves the pointer to a point of the root window, and presses and releases a button there, the first one
    // if not told otherwise.
    void click(QPoint place, std::uint8_t button = XCB_BUTTON_INDEX_1) const;

private:
    [[nodiscard]] xcb_keycode_t keyCodeOf(xcb_keysym_t symbol) const;
    void post(std::uint8_t type, std::uint8_t detail, QPoint place = {}) const;

    const XClient &x_;
};

} // namespace testsupport

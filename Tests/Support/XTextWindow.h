// A window of another program that holds the keyboard's focus.
#pragma once

#include "Tests/Support/XClient.h"

namespace testsupport {

// Records the ordinary events that it gets, as any program's window does. Covers the upper left corner of the
// screen and, where a window manager runs, is managed by it. A connection of its own; one thread at a time.
class XTextWindow
{
public:
    struct Event
    {
        std::uint8_t type = 0;   // XCB_KEY_PRESS, XCB_BUTTON_RELEASE, XCB_MOTION_NOTIFY and so on
        std::uint8_t detail = 0; // the key code or the button
        std::uint32_t serverTime = 0;
    };

    explicit XTextWindow(const QString &display);

    [[nodiscard]] xcb_window_t window() const { return window_; }
    // Waits until the window is on the screen, takes the focus and says whether it has it.
    [[nodiscard]] bool takeFocus() const;
    [[nodiscard]] bool hasFocus() const;

    // The key, button and motion events so far, oldest first. Never waits.
    [[nodiscard]] const std::vector<Event> &events();
    void clear();

private:
    XClient client_;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    std::vector<Event> events_;
};

} // namespace testsupport

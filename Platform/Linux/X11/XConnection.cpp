#include "Platform/Linux/X11/XConnection.h"

namespace platform {

namespace {

xcb_window_t rootOfScreen(xcb_connection_t *connection, int screenNumber)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

XConnection::XConnection()
{
    int screenNumber = 0;
    connection_.reset(xcb_connect(nullptr, &screenNumber));
    if (isOpen()) {
        rootWindow_ = rootOfScreen(connection_.get(), screenNumber);
    }
}

void XConnection::flush()
{
    xcb_flush(connection_.get());
    while (const auto event = XReply<xcb_generic_event_t>(xcb_poll_for_event(connection_.get()))) {
    }
}

void XConnection::sync()
{
    xReply(xcb_get_input_focus_reply, get(), xcb_get_input_focus_unchecked(get()));
    flush();
}

} // namespace platform

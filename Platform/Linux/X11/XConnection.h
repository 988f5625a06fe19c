// A connection of the program's own to the X server, beside the toolkit's.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace platform {

struct FreeDeleter
{
    void operator()(void *memory) const { std::free(memory); }
};

// A reply of the X server; empty where the request failed or the connection broke.
template <class T> using XReply = std::unique_ptr<T, FreeDeleter>;

// Waits for the reply of a request: xReply(xcb_query_pointer_reply, connection, cookie). Errors are dropped.
template <class Function, class Cookie>
auto xReply(Function function, xcb_connection_t *connection, Cookie cookie)
{
    return XReply<std::remove_pointer_t<decltype(function(connection, cookie, nullptr))>>(
        function(connection, cookie, nullptr));
}

// One thread at a time. A broken connection answers every request with nothing and never ends the process.
class XConnection
{
public:
    // Connects to the display that the environment names; check isOpen().
    XConnection();

    [[nodiscard]] bool isOpen() const { return xcb_connection_has_error(connection_.get()) == 0; }
    [[nodiscard]] xcb_connection_t *get() const { return connection_.get(); }
    [[nodiscard]] xcb_window_t rootWindow() const { return rootWindow_; }

    // Sends what is queued, and drops the events and errors that came in, which nobody asked for.
    void flush();

    // The same, and waits until the server has handled it. What is still on its way when a connection ends
    // may be lost.
    void sync();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_window_t rootWindow_ = XCB_WINDOW_NONE;
};

} // namespace platform

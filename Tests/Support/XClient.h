// A client of an X server that is neither the toolkit nor the program under test.
#pragma once

#include <QByteArray>
#include <QString>

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace testsupport {

struct FreeMemory
{
    void operator()(void *memory) const { std::free(memory); }
};

// A reply or an event of the X server; empty where there is none.
template <class T> using XAnswer = std::unique_ptr<T, FreeMemory>;

// Waits for the reply of a request: xAnswer(xcb_query_pointer_reply, connection, cookie).
template <class Function, class Cookie>
auto xAnswer(Function function, xcb_connection_t *connection, Cookie cookie)
{
    return XAnswer<std::remove_pointer_t<decltype(function(connection, cookie, nullptr))>>(
        function(connection, cookie, nullptr));
}

// One connection, with the few requests that every test needs. One thread at a time.
class XClient
{
public:
    // Connects to a display by name, ":7" for instance; check isOpen().
    explicit XClient(const QString &display);

    [[nodiscard]] bool isOpen() const { return xcb_connection_has_error(connection_.get()) == 0; }
    [[nodiscard]] xcb_connection_t *get() const { return connection_.get(); }
    [[nodiscard]] xcb_window_t root() const { return screen_->root; }
    [[nodiscard]] const xcb_screen_t &screen() const { return *screen_; }

    [[nodiscard]] xcb_atom_t atom(const QByteArray &name) const;
    // A window's property of whatever type: as 32-bit values, or as bytes; empty where there is none.
    [[nodiscard]] std::vector<std::uint32_t> cardinals(xcb_window_t window, const QByteArray &name) const;
    [[nodiscard]] QByteArray bytes(xcb_window_t window, const QByteArray &name) const;

    // Sends a client message to the root window for the window manager, and waits until the server has it.
    void tellWindowManager(xcb_window_t window, const QByteArray &type,
                           const std::array<std::uint32_t, 5> &data) const;

    // Waits until the server has handled everything that was sent.
    void sync() const;

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    [[nodiscard]] XAnswer<xcb_get_property_reply_t> property(xcb_window_t window,
                                                             const QByteArray &name) const;

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t *screen_ = nullptr;
};

} // namespace testsupport

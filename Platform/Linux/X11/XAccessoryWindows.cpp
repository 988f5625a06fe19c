#include "Platform/Linux/X11/XAccessoryWindows.h"

#include "Platform/Linux/X11/XConnection.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <array>
#include <vector>

namespace platform {

namespace {

constexpr std::uint32_t addState = 1;
constexpr std::uint32_t sourceIsApplication = 1;
constexpr std::uint32_t longestState = 64; // atoms

xcb_connection_t *toolkitConnection()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *x, const QByteArray &name)
{
    const auto cookie =
        xcb_intern_atom_unchecked(x, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const auto reply = xReply(xcb_intern_atom_reply, x, cookie);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// Follows the program's windows. The state is written before a window is mapped, and afterwards asked of the
// window manager, as the EWMH wants it.
class AccessoryWindows final : public QObject
{
public:
    AccessoryWindows(xcb_connection_t *x, QObject *parent)
        : QObject(parent)
        , x_(x)
        , state_(atom(x, "_NET_WM_STATE"))
        , skips_{atom(x, "_NET_WM_STATE_SKIP_TASKBAR"), atom(x, "_NET_WM_STATE_SKIP_PAGER")}
    {
        for (const auto *window : QGuiApplication::topLevelWindows()) {
            if (window->isVisible()) {
                ask(*window);
            }
        }
        qGuiApp->installEventFilter(this);
    }

protected:
    // The toolkit tells a window that it is shown before it maps it.
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->isWindowType()) {
            if (const auto *window = static_cast<QWindow *>(watched); window->isTopLevel()) { // NOLINT
                write(*window);
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void write(const QWindow &window)
    {
        const auto id = static_cast<xcb_window_t>(window.winId());
        auto states = statesOf(id);
        for (const auto skip : skips_) {
            if (std::ranges::find(states, skip) == states.end()) {
                states.push_back(skip);
            }
        }
        xcb_change_property(x_, XCB_PROP_MODE_REPLACE, id, state_, XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(states.size()), states.data());
    }

    std::vector<xcb_atom_t> statesOf(xcb_window_t window)
    {
        const auto cookie = xcb_get_property_unchecked(x_, 0, window, state_, XCB_ATOM_ATOM, 0, longestState);
        const auto reply = xReply(xcb_get_property_reply, x_, cookie);
        if (!reply || reply->format != 32) {
            return {};
        }
        const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get()));
        return {first, first + reply->value_len};
    }

    void ask(const QWindow &window)
    {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = static_cast<xcb_window_t>(window.winId());
        message.type = state_;
        message.data.data32[0] = addState;
        message.data.data32[1] = skips_[0];
        message.data.data32[2] = skips_[1];
        message.data.data32[3] = sourceIsApplication;
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
        xcb_send_event(x_, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&message)); // NOLINT: 32 bytes, whatever its type
        xcb_flush(x_);
    }

    xcb_connection_t *x_;
    xcb_atom_t state_;
    std::array<xcb_atom_t, 2> skips_;
};

} // namespace

void keepWindowsOffTheTaskBar()
{
    static QPointer<QObject> windows;
    if (auto *x = toolkitConnection(); x && !windows) {
        windows = new AccessoryWindows(x, qGuiApp);
    }
}

} // namespace platform

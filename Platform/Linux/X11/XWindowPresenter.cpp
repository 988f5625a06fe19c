#include "Platform/Linux/X11/XWindowPresenter.h"

#include "Platform/Linux/X11/XConnection.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <cstring>
#include <vector>

namespace platform {

namespace {

constexpr std::uint32_t sourceIsApplication = 1;
constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t addState = 1;

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

std::vector<xcb_atom_t> statesOf(xcb_connection_t *x, xcb_window_t window, xcb_atom_t type)
{
    constexpr std::uint32_t mostStates = 64;
    const auto cookie = xcb_get_property_unchecked(x, 0, window, type, XCB_ATOM_ATOM, 0, mostStates);
    const auto reply = xReply(xcb_get_property_reply, x, cookie);
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *first = static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

xcb_window_t rootWindow(xcb_connection_t *x)
{
    return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

void sendToRoot(xcb_connection_t *x, const xcb_client_message_event_t &message, std::uint32_t mask)
{
    // A sent event is 32 bytes whatever its type.
    xcb_send_event(x, 0, rootWindow(x), mask, reinterpret_cast<const char *>(&message)); // NOLINT
}

void requestActivation(xcb_connection_t *x, xcb_window_t window, std::uint32_t time)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(x, "_NET_ACTIVE_WINDOW");
    message.data.data32[0] = sourceIsApplication;
    message.data.data32[1] = time;
    sendToRoot(x, message, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

// The startup notification protocol: the text goes out in pieces of 20 bytes, ended by a zero.
void announceLaunchOver(xcb_connection_t *x, xcb_window_t window, const QByteArray &startupId)
{
    QByteArray escaped = startupId;
    escaped.replace('\\', "\\\\").replace('"', "\\\"").replace(' ', "\\ ");
    const QByteArray text = "remove: ID=" + escaped + '\0';
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = window;
    message.type = atom(x, "_NET_STARTUP_INFO_BEGIN");
    const auto nextType = atom(x, "_NET_STARTUP_INFO");
    constexpr qsizetype pieceSize = sizeof message.data;
    for (qsizetype sent = 0; sent < text.size(); sent += pieceSize) {
        std::memset(message.data.data8, 0, sizeof message.data);
        const auto size = std::min(pieceSize, text.size() - sent);
        std::memcpy(message.data.data8, text.constData() + sent, static_cast<std::size_t>(size));
        sendToRoot(x, message, XCB_EVENT_MASK_PROPERTY_CHANGE);
        message.type = nextType;
    }
}

} // namespace

std::optional<std::uint32_t> timeInStartupId(const QString &startupId)
{
    const auto mark = QStringLiteral("_TIME");
    const auto at = startupId.lastIndexOf(mark);
    bool isNumber = false;
    const auto time = at < 0 ? 0 : startupId.mid(at + mark.size()).toUInt(&isNumber);
    return isNumber ? std::optional(time) : std::nullopt;
}

void listXWindow(const QWindow &window, bool isListed)
{
    auto *x = toolkitConnection();
    if (!x) {
        return;
    }
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = atom(x, "_NET_WM_STATE");
    message.data.data32[0] = isListed ? removeState : addState;
    message.data.data32[1] = atom(x, "_NET_WM_STATE_SKIP_TASKBAR");
    message.data.data32[2] = atom(x, "_NET_WM_STATE_SKIP_PAGER");
    message.data.data32[3] = sourceIsApplication;
    sendToRoot(x, message, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    xcb_flush(x);
}

void unlistHiddenXWindow(const QWindow &window)
{
    auto *x = toolkitConnection();
    if (!x) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto type = atom(x, "_NET_WM_STATE");
    auto states = statesOf(x, id, type);
    for (const auto *name : {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}) {
        if (const auto state = atom(x, name); !std::ranges::count(states, state)) {
            states.push_back(state);
        }
    }
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, type, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(states.size()), states.data());
}

void activateXWindow(const QWindow &window, const QString &startupId)
{
    auto *x = toolkitConnection();
    if (!x || startupId.isEmpty()) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (const auto time = timeInStartupId(startupId)) {
        requestActivation(x, id, *time);
    }
    announceLaunchOver(x, id, startupId.toUtf8());
    xcb_flush(x);
}

} // namespace platform

#include "Platform/Linux/X11/KeyReaders.h"

#include "Platform/Linux/FileDescriptor.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds patience(5000);
constexpr milliseconds timeOfOthers(500);
constexpr int mostGenerations = 16;

// Can be read from the moment on in which a stop is requested.
class StopFile
{
public:
    explicit StopFile(const std::stop_token &stop)
        : file_(eventfd(0, EFD_CLOEXEC))
        , whenRequested_(stop, Write{file_.get()})
    {}

    [[nodiscard]] int get() const { return file_.get(); }

private:
    struct Write
    {
        int file;
        void operator()() const { eventfd_write(file, 1); }
    };

    FileDescriptor file_;
    std::stop_callback<Write> whenRequested_;
};

struct Atoms
{
    xcb_atom_t protocols;
    xcb_atom_t ping;
};

xcb_atom_t atomNamed(XConnection &connection, std::string_view name)
{
    const auto cookie =
        xcb_intern_atom_unchecked(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = xReply(xcb_intern_atom_reply, connection.get(), cookie);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool answersPings(XConnection &connection, xcb_window_t window, const Atoms &atoms)
{
    constexpr std::uint32_t mostProtocols = 64;
    const auto cookie = xcb_get_property_unchecked(connection.get(), 0, window, atoms.protocols,
                                                   XCB_ATOM_ATOM, 0, mostProtocols);
    const auto reply = xReply(xcb_get_property_reply, connection.get(), cookie);
    if (!reply || reply->format != 32) {
        return false;
    }
    const std::span protocols(static_cast<const xcb_atom_t *>(xcb_get_property_value(reply.get())),
                              reply->value_len);
    return std::ranges::find(protocols, atoms.ping) != protocols.end();
}

xcb_window_t parentOf(XConnection &connection, xcb_window_t window)
{
    const auto reply =
        xReply(xcb_query_tree_reply, connection.get(), xcb_query_tree_unchecked(connection.get(), window));
    return reply ? reply->parent : xcb_window_t{XCB_WINDOW_NONE};
}

// The window with the focus, or the one around it, that answers pings.
std::optional<xcb_window_t> windowToAsk(XConnection &connection, const Atoms &atoms)
{
    const auto focus =
        xReply(xcb_get_input_focus_reply, connection.get(), xcb_get_input_focus_unchecked(connection.get()));
    auto window = focus ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
    for (int i = 0; i < mostGenerations && window > XCB_INPUT_FOCUS_POINTER_ROOT; ++i) {
        if (answersPings(connection, window, atoms)) {
            return window;
        }
        window = parentOf(connection, window);
    }
    return std::nullopt;
}

void listenAt(XConnection &connection, xcb_window_t window, std::uint32_t events)
{
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

xcb_client_message_event_t pingOf(xcb_window_t window, const Atoms &atoms)
{
    xcb_client_message_event_t ping{};
    ping.response_type = XCB_CLIENT_MESSAGE;
    ping.format = 32;
    ping.window = window;
    ping.type = atoms.protocols;
    const auto mark = static_cast<std::uint32_t>(Clock::now().time_since_epoch().count());
    std::ranges::copy(std::array<std::uint32_t, 3>{atoms.ping, mark, window}, std::begin(ping.data.data32));
    return ping;
}

bool isAnswer(const xcb_generic_event_t &event, const xcb_client_message_event_t &ping)
{
    constexpr std::uint8_t withoutSender = 0x7f;
    if ((event.response_type & withoutSender) != XCB_CLIENT_MESSAGE) {
        return false;
    }
    const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event); // NOLINT
    return message.type == ping.type && message.window != ping.window &&
           std::equal(std::begin(ping.data.data32), std::begin(ping.data.data32) + 3,
                      message.data.data32); // NOLINT
}

// A program may end by the last key, before it answers or even before it is asked.
bool isEnd(const xcb_generic_event_t &event, xcb_window_t window)
{
    if (event.response_type == 0) {
        const auto &error = reinterpret_cast<const xcb_generic_error_t &>(event); // NOLINT
        return error.error_code == XCB_WINDOW && error.resource_id == window;
    }
    const auto &end = reinterpret_cast<const xcb_destroy_notify_event_t &>(event); // NOLINT
    return event.response_type == XCB_DESTROY_NOTIFY && end.window == window;
}

bool awaitAnswer(XConnection &connection, const xcb_client_message_event_t &ping, const std::stop_token &stop)
{
    const auto deadline = Clock::now() + patience;
    const StopFile stopFile(stop);
    std::array<pollfd, 2> files{
        {{xcb_get_file_descriptor(connection.get()), POLLIN, 0}, {stopFile.get(), POLLIN, 0}}};
    while (connection.isOpen() && !stop.stop_requested() && Clock::now() < deadline) {
        while (const auto event = XReply<xcb_generic_event_t>(xcb_poll_for_event(connection.get()))) {
            if (isAnswer(*event, ping) || isEnd(*event, ping.window)) {
                return true;
            }
        }
        const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
        poll(files.data(), files.size(), static_cast<int>(std::max(left, milliseconds(0)).count()));
    }
    return false;
}

bool ask(XConnection &connection, xcb_window_t window, const Atoms &atoms, const std::stop_token &stop)
{
    const auto ping = pingOf(window, atoms);
    // Programs send their answers to the root window, whoever asked: to the listeners that the convention
    // names, or to those that Qt does.
    listenAt(connection, connection.rootWindow(),
             XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    listenAt(connection, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    xcb_send_event(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&ping)); // NOLINT
    xcb_flush(connection.get());
    const bool isAnswered = awaitAnswer(connection, ping, stop);
    listenAt(connection, connection.rootWindow(), XCB_EVENT_MASK_NO_EVENT);
    listenAt(connection, window, XCB_EVENT_MASK_NO_EVENT);
    connection.flush();
    return isAnswered;
}

// False where a stop is requested before the time is over.
bool letPass(milliseconds time, const std::stop_token &stop)
{
    std::mutex unshared;
    std::unique_lock lock(unshared);
    std::condition_variable_any().wait_for(lock, stop, time, [] { return false; });
    return !stop.stop_requested();
}

} // namespace

bool awaitKeyReaders(XConnection &connection, const std::stop_token &stop)
{
    const Atoms atoms{atomNamed(connection, "WM_PROTOCOLS"), atomNamed(connection, "_NET_WM_PING")};
    if (const auto window = windowToAsk(connection, atoms)) {
        return ask(connection, *window, atoms, stop);
    }
    return letPass(timeOfOthers, stop);
}

} // namespace platform

#include "Platform/Linux/X11/Xwayland.h"

#include <xcb/randr.h>

#include <algorithm>
#include <span>
#include <string_view>

namespace platform {

namespace {

constexpr std::string_view mark = "XWAYLAND";

bool hasExtension(xcb_connection_t *x)
{
    const auto cookie =
        xcb_query_extension_unchecked(x, static_cast<std::uint16_t>(mark.size()), mark.data());
    const auto reply = xReply(xcb_query_extension_reply, x, cookie);
    return reply && reply->present;
}

bool isNamedXwayland(xcb_connection_t *x, xcb_randr_output_t output)
{
    const auto reply = xReply(xcb_randr_get_output_info_reply, x,
                              xcb_randr_get_output_info_unchecked(x, output, XCB_CURRENT_TIME));
    if (!reply) {
        return false;
    }
    // The library gives a name as bytes.
    const auto *bytes = reinterpret_cast<const char *>(xcb_randr_get_output_info_name(reply.get())); // NOLINT
    const auto length = static_cast<std::size_t>(xcb_randr_get_output_info_name_length(reply.get()));
    return std::string_view(bytes, length).starts_with(mark);
}

bool hasXwaylandOutput(const XConnection &connection)
{
    auto *x = connection.get();
    const auto *extension = xcb_get_extension_data(x, &xcb_randr_id);
    if (!extension || !extension->present) {
        return false;
    }
    const auto cookie = xcb_randr_get_screen_resources_current_unchecked(x, connection.rootWindow());
    const auto reply = xReply(xcb_randr_get_screen_resources_current_reply, x, cookie);
    if (!reply) {
        return false;
    }
    const std::span outputs(
        xcb_randr_get_screen_resources_current_outputs(reply.get()),
        static_cast<std::size_t>(xcb_randr_get_screen_resources_current_outputs_length(reply.get())));
    return std::ranges::any_of(outputs,
                               [x](xcb_randr_output_t output) { return isNamedXwayland(x, output); });
}

} // namespace

bool isXwayland(const XConnection &connection)
{
    return hasExtension(connection.get()) || hasXwaylandOutput(connection);
}

} // namespace platform

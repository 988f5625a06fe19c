#include "Platform/Linux/X11/XKeyboards.h"

#include "Platform/Linux/X11/Xkb.h"

#include <xcb/xinput.h>

#include <optional>

namespace platform {

namespace {

bool hasXInput2(XConnection &connection)
{
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_input_id);
    if (!extension || !extension->present) {
        return false;
    }
    const auto reply = xReply(xcb_input_xi_query_version_reply, connection.get(),
                              xcb_input_xi_query_version_unchecked(connection.get(), 2, 2));
    return reply && reply->major_version >= 2;
}

bool hasXkb(XConnection &connection)
{
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_xkb_id);
    if (!extension || !extension->present) {
        return false;
    }
    const auto reply = xReply(xcb_xkb_use_extension_reply, connection.get(),
                              xcb_xkb_use_extension_unchecked(connection.get(), 1, 0));
    return reply && reply->supported;
}

std::optional<XKeyboard> numberOfCoreKeyboard(XConnection &connection)
{
    const auto reply = xReply(xcb_xkb_get_state_reply, connection.get(),
                              xcb_xkb_get_state_unchecked(connection.get(), coreKeyboard));
    return reply ? std::optional<XKeyboard>(reply->deviceID) : std::nullopt;
}

} // namespace

bool startKeyboardExtensions(XConnection &connection)
{
    return hasXkb(connection) && hasXInput2(connection);
}

std::vector<XKeyboard> attachedKeyboards(XConnection &connection)
{
    std::vector<XKeyboard> keyboards;
    const auto core = numberOfCoreKeyboard(connection);
    const auto reply = xReply(xcb_input_xi_query_device_reply, connection.get(),
                              xcb_input_xi_query_device_unchecked(connection.get(), XCB_INPUT_DEVICE_ALL));
    if (!core || !reply) {
        return keyboards;
    }
    for (auto device = xcb_input_xi_query_device_infos_iterator(reply.get()); device.rem > 0;
         xcb_input_xi_device_info_next(&device)) {
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD && device.data->attachment == *core) {
            keyboards.push_back(device.data->deviceid);
        }
    }
    return keyboards;
}

} // namespace platform

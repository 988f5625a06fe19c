#include "Platform/Linux/X11/SmoothScroll.h"

#include <xcb/xcbext.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <sys/uio.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

namespace platform {

namespace {

constexpr double pixelsPerNotch = 60;
constexpr std::uint8_t largestDevice = 127;     // the request has seven bits for it
constexpr std::uint8_t moreEventsFollow = 0x80; // flag beside the device id
constexpr std::size_t valuatorsPerEvent = 6;
constexpr double unitsOfFraction = 4294967296.0; // 2^32: XInput's 32.32 fixed point

double number(xcb_input_fp3232_t value)
{
    return value.integral + value.frac / unitsOfFraction;
}

const xcb_input_scroll_class_t *verticalScrollClass(const xcb_input_xi_device_info_t &device)
{
    for (auto it = xcb_input_xi_device_info_classes_iterator(&device); it.rem > 0;
         xcb_input_device_class_next(&it)) {
        const auto *scroll = std::bit_cast<const xcb_input_scroll_class_t *>(it.data);
        if (it.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_SCROLL &&
            scroll->scroll_type == XCB_INPUT_SCROLL_TYPE_VERTICAL) {
            return scroll;
        }
    }
    return nullptr;
}

bool isPhysicalPointer(const xcb_input_xi_device_info_t &device)
{
    return device.type == XCB_INPUT_DEVICE_TYPE_SLAVE_POINTER && device.enabled &&
           device.deviceid <= largestDevice;
}

std::optional<ScrollAxis> scrollAxisOf(const xcb_input_xi_device_info_t &device)
{
    const auto *scroll = isPhysicalPointer(device) ? verticalScrollClass(device) : nullptr;
    const auto pixel = scroll ? unitsOfOnePixel(number(scroll->increment)) : 0;
    if (pixel == 0) {
        return std::nullopt;
    }
    return ScrollAxis{static_cast<std::uint8_t>(device.deviceid), static_cast<std::uint8_t>(scroll->number),
                      pixel, false};
}

template <class Function>
void forEachDevice(const xcb_input_xi_query_device_reply_t &reply, Function function)
{
    for (auto it = xcb_input_xi_query_device_infos_iterator(&reply); it.rem > 0;
         xcb_input_xi_device_info_next(&it)) {
        function(*it.data);
    }
}

// A master pointer has the classes of the device that moved it last, and names it as their source.
std::vector<std::uint16_t> currentDevices(const xcb_input_xi_query_device_reply_t &reply)
{
    std::vector<std::uint16_t> current;
    forEachDevice(reply, [&current](const xcb_input_xi_device_info_t &device) {
        const auto *scroll = verticalScrollClass(device);
        if (scroll && device.type == XCB_INPUT_DEVICE_TYPE_MASTER_POINTER) {
            current.push_back(scroll->sourceid);
        }
    });
    return current;
}

// One extension event of the request: up to six valuators from `first` on.
xcb_input_device_valuator_event_t valuatorEvent(std::uint8_t type, const std::vector<std::int32_t> &values,
                                                std::size_t first)
{
    xcb_input_device_valuator_event_t event{};
    event.response_type = type;
    event.num_valuators = static_cast<std::uint8_t>(values.size());
    event.first_valuator = static_cast<std::uint8_t>(first);
    std::copy_n(values.begin() + static_cast<std::ptrdiff_t>(first),
                std::min(valuatorsPerEvent, values.size() - first), event.valuators);
    return event;
}

// The library's own call for this request cannot carry the events of an extension device.
void sendFakeInput(XConnection &connection, xcb_test_fake_input_request_t &request,
                   std::vector<xcb_input_device_valuator_event_t> &events)
{
    const xcb_protocol_request_t protocol{2, &xcb_test_id, XCB_TEST_FAKE_INPUT, 1};
    // The library writes into the two elements in front of those that it is given.
    std::array<iovec, 4> parts{};
    parts[2] = {&request, sizeof request};
    parts[3] = {events.data(), events.size() * sizeof events.front()};
    xcb_send_request(connection.get(), 0, parts.data() + 2, &protocol);
}

} // namespace

std::int32_t unitsOfOnePixel(double increment)
{
    const double size = std::abs(increment);
    if (!(size > 1)) {
        return 0;
    }
    const double units = std::clamp(std::round(size / pixelsPerNotch), 1.0, 32767.0);
    return static_cast<std::int32_t>(std::copysign(units, increment));
}

std::optional<ScrollAxis> findScrollAxis(XConnection &connection)
{
    auto *x = connection.get();
    const auto reply = xReply(xcb_input_xi_query_device_reply, x,
                              xcb_input_xi_query_device_unchecked(x, XCB_INPUT_DEVICE_ALL));
    if (!reply) {
        return std::nullopt;
    }
    const auto current = currentDevices(*reply);
    std::optional<ScrollAxis> found;
    forEachDevice(*reply, [&](const xcb_input_xi_device_info_t &device) {
        auto axis = scrollAxisOf(device);
        if (axis) {
            axis->isCurrent = std::ranges::find(current, axis->device) != current.end();
            found = found && !axis->isCurrent ? found : axis;
        }
    });
    return found;
}

void queueScroll(XConnection &connection, const ScrollAxis &axis, std::int32_t pixels)
{
    const auto *input = xcb_get_extension_data(connection.get(), &xcb_input_id);
    if (!input || !input->present) {
        return;
    }
    // The server stores the values by absolute axis but reads them relative to the first one: start at axis
    // 0.
    std::vector<std::int32_t> steps(axis.axis + 1U, 0);
    using Range = std::numeric_limits<std::int32_t>;
    const auto units = std::int64_t{axis.pixel} * pixels;
    steps.back() = static_cast<std::int32_t>(std::clamp<std::int64_t>(units, Range::min(), Range::max()));

    xcb_test_fake_input_request_t request{};
    request.type = static_cast<std::uint8_t>(input->first_event + XCB_INPUT_DEVICE_MOTION_NOTIFY);
    request.detail = 1; // relative
    request.deviceid = axis.device | moreEventsFollow;

    const auto valuatorType = static_cast<std::uint8_t>(input->first_event + XCB_INPUT_DEVICE_VALUATOR);
    std::vector<xcb_input_device_valuator_event_t> events;
    for (std::size_t first = 0; first < steps.size(); first += valuatorsPerEvent) {
        events.push_back(valuatorEvent(valuatorType, steps, first));
        events.back().device_id = axis.device;
    }
    sendFakeInput(connection, request, events);
}

} // namespace platform

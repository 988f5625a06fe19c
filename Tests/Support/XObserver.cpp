#include "Tests/Support/XObserver.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <optional>

namespace testsupport {

namespace {

constexpr std::uint32_t wantedEvents =
    XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS |
    XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;

struct SelectedMask
{
    xcb_input_event_mask_t head;
    std::uint32_t mask;
};

std::optional<XRawEvent::Kind> kindOf(std::uint16_t eventType)
{
    switch (eventType) {
    case XCB_INPUT_RAW_MOTION:
        return XRawEvent::Kind::motion;
    case XCB_INPUT_RAW_KEY_PRESS:
        return XRawEvent::Kind::keyPress;
    case XCB_INPUT_RAW_KEY_RELEASE:
        return XRawEvent::Kind::keyRelease;
    case XCB_INPUT_RAW_BUTTON_PRESS:
        return XRawEvent::Kind::buttonPress;
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        return XRawEvent::Kind::buttonRelease;
    default:
        return std::nullopt;
    }
}

double decimal(const xcb_input_fp3232_t &value)
{
    constexpr double unit = 4294967296.0; // 2^32
    return value.integral + value.frac / unit;
}

// The values lie one after the other, for the axes whose bit is set.
std::map<int, double> valuatorsOf(const xcb_input_raw_button_press_event_t &event)
{
    const auto *mask = xcb_input_raw_button_press_valuator_mask(&event);
    const auto *values = xcb_input_raw_button_press_axisvalues_raw(&event);
    std::map<int, double> valuators;
    for (int axis = 0; axis < event.valuators_len * 32; ++axis) {
        if (mask[axis / 32] & (1U << (axis % 32))) {
            valuators[axis] = decimal(*values++);
        }
    }
    return valuators;
}

} // namespace

double XRawEvent::valuator(int axis) const
{
    const auto found = valuators.find(axis);
    return found == valuators.end() ? 0 : found->second;
}

XObserver::XObserver(const QString &display)
    : client_(display)
{
    if (!client_.isOpen()) {
        return;
    }
    const auto *extension = xcb_get_extension_data(client_.get(), &xcb_input_id);
    const auto version = xAnswer(xcb_input_xi_query_version_reply, client_.get(),
                                 xcb_input_xi_query_version(client_.get(), 2, 2));
    if (extension && version && version->major_version == 2 && version->minor_version >= 2) {
        extension_ = extension->major_opcode;
        isOpen_ = true;
        select();
    }
}

void XObserver::select()
{
    const SelectedMask wanted{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, wantedEvents};
    xcb_input_xi_select_events(client_.get(), client_.root(), 1, &wanted.head);
    client_.sync();
}

const std::vector<XRawEvent> &XObserver::events()
{
    while (const auto event = XAnswer<xcb_generic_event_t>(xcb_poll_for_event(client_.get()))) {
        take(*event);
    }
    return events_;
}

std::vector<XRawEvent> XObserver::events(XRawEvent::Kind kind)
{
    auto chosen = events();
    std::erase_if(chosen, [kind](const XRawEvent &event) { return event.kind != kind; });
    return chosen;
}

void XObserver::clear()
{
    static_cast<void>(events());
    events_.clear();
}

void XObserver::take(const xcb_generic_event_t &event)
{
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) {
        return;
    }
    // All raw events are laid out alike.
    const auto &raw = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event); // NOLINT
    const auto kind = kindOf(raw.event_type);
    if (raw.extension == extension_ && kind) {
        events_.push_back(
            {*kind, raw.detail, valuatorsOf(raw), raw.sourceid, raw.time, std::chrono::steady_clock::now()});
    }
}

QPoint XObserver::pointer() const
{
    const auto reply =
        xAnswer(xcb_query_pointer_reply, client_.get(), xcb_query_pointer(client_.get(), client_.root()));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint(-1, -1);
}

bool XObserver::isAnythingHeldDown() const
{
    constexpr int everyButton =
        XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3 | XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;
    const auto keys = xAnswer(xcb_query_keymap_reply, client_.get(), xcb_query_keymap(client_.get()));
    const auto pointer =
        xAnswer(xcb_query_pointer_reply, client_.get(), xcb_query_pointer(client_.get(), client_.root()));
    return !keys || !pointer || (pointer->mask & everyButton) != 0 ||
           std::any_of(std::begin(keys->keys), std::end(keys->keys), [](auto bits) { return bits != 0; });
}

} // namespace testsupport

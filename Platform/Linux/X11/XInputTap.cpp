#include "Platform/Linux/X11/XInputTap.h"

#include "Platform/Linux/SilentKeyChoice.h"
#include "Platform/Linux/VirtualKeys.h"
#include "Platform/Linux/X11/Xwayland.h"

#include <xcb/xcbext.h>
#include <xcb/xtest.h>

#include <span>

namespace platform {

namespace {

struct SelectedMask
{
    xcb_input_event_mask_t head;
    std::uint32_t mask;
};

// The number of the extension's events; nothing without raw events of master devices.
std::optional<std::uint8_t> inputExtensionOf(const XConnection &connection)
{
    auto *x = connection.get();
    const auto *extension = connection.isOpen() ? xcb_get_extension_data(x, &xcb_input_id) : nullptr;
    if (!extension || !extension->present) {
        return std::nullopt;
    }
    const auto version =
        xReply(xcb_input_xi_query_version_reply, x, xcb_input_xi_query_version_unchecked(x, 2, 2));
    const bool isNewEnough = version && (version->major_version > 2 ||
                                         (version->major_version == 2 && version->minor_version >= 2));
    return isNewEnough && !isXwayland(connection) ? std::optional(extension->major_opcode) : std::nullopt;
}

// Of the axes, the first two are the pointer's and the others a scroll or a pen. One that only scrolls may
// name the first two all the same, with nothing in them.
bool movesPointer(const xcb_input_raw_button_press_event_t &event)
{
    if (event.valuators_len == 0) {
        return false;
    }
    const auto axes = *xcb_input_raw_button_press_valuator_mask(&event);
    const auto *values = xcb_input_raw_button_press_axisvalues_raw(&event);
    const std::span moves(values, (axes & 1U) + ((axes >> 1U) & 1U));
    const bool hasOthers = (axes & ~3U) != 0;
    for (const auto &move : moves) {
        if (!hasOthers || move.integral != 0 || move.frac != 0) {
            return true;
        }
    }
    return false;
}

double decimal(xcb_input_fp1616_t value)
{
    return value / 65536.0;
}

} // namespace

bool XInputTap::isPossible()
{
    return inputExtensionOf(XConnection()).has_value();
}

std::unique_ptr<InputTap> XInputTap::create(EventMask mask, InputListener::Handler handler)
{
    std::unique_ptr<XInputTap> tap(new XInputTap(mask, std::move(handler)));
    return tap->open() ? std::move(tap) : nullptr;
}

XInputTap::XInputTap(EventMask mask, InputListener::Handler handler)
    : delivery_(mask, std::move(handler))
{}

bool XInputTap::open()
{
    const auto extension = inputExtensionOf(connection_);
    if (!extension) {
        return false;
    }
    inputExtension_ = *extension;
    auto *x = connection_.get();
    if (const auto *xtest = xcb_get_extension_data(x, &xcb_test_id); xtest && xtest->present) {
        xcb_test_grab_control(x, 1);
    }
    if (delivery_.wantsAny(allKeyKinds)) {
        keyboard_ = XKeyText::create(connection_);
    }
    notifier_.emplace(xcb_get_file_descriptor(x), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { takeIn(); });
    return keyboard_ || !delivery_.wantsAny(allKeyKinds);
}

void XInputTap::setEnabled(bool isEnabled)
{
    if (isEnabled != delivery_.isEnabled()) {
        delivery_.setEnabled(isEnabled);
        ownPresses_ = {};
        select(isEnabled ? wantedEvents() : 0);
        if (isEnabled && delivery_.wantsAny(allPointerKinds)) {
            buttons_.emplace(connection_);
        }
    }
}

std::uint32_t XInputTap::wantedEvents() const
{
    std::uint32_t events = 0;
    if (delivery_.wantsAny(allPointerKinds)) {
        events |= XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                  XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
    }
    if (delivery_.wantsAny(allKeyKinds)) {
        events |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
    }
    return events;
}

// Waits until the server has taken it: what happens afterwards is seen.
void XInputTap::select(std::uint32_t events)
{
    const SelectedMask selected{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    auto *x = connection_.get();
    const auto cookie = xcb_input_xi_select_events_checked(x, connection_.rootWindow(), 1, &selected.head);
    const XReply<xcb_generic_error_t> error(xcb_request_check(x, cookie));
    QMetaObject::invokeMethod(
        &*notifier_, [this] { takeIn(); }, Qt::QueuedConnection);
}

// What came while the library waited or wrote, it has read already, and the socket is silent about it.
void XInputTap::takeIn()
{
    bool isAnythingNew = true;
    while (isAnythingNew) {
        isAnythingNew = false;
        xcb_flush(connection_.get());
        if (!takeEvents(isAnythingNew) || !takeAnswers(isAnythingNew)) {
            return;
        }
    }
    if (!connection_.isOpen()) {
        notifier_->setEnabled(false); // the end of a connection can be read for ever
    }
}

bool XInputTap::takeEvents(bool &isAnythingNew)
{
    while (const auto event = XReply<xcb_generic_event_t>(xcb_poll_for_event(connection_.get()))) {
        isAnythingNew = true;
        if (!take(*event)) {
            return false;
        }
    }
    return true;
}

bool XInputTap::takeAnswers(bool &isAnythingNew)
{
    void *answer = nullptr;
    while (!questions_.empty() &&
           xcb_poll_for_reply(connection_.get(), questions_.front().cookie.sequence, &answer, nullptr) == 1) {
        isAnythingNew = true;
        const auto kind = questions_.front().kind;
        questions_.pop_front();
        const XReply<xcb_input_xi_query_pointer_reply_t> pointer(
            static_cast<xcb_input_xi_query_pointer_reply_t *>(answer));
        if (pointer &&
            !delivery_.deliver(
                {.kind = kind, .location = {decimal(pointer->root_x), decimal(pointer->root_y)}})) {
            return false;
        }
    }
    return true;
}

// The library gives every event as a general one; its numbers say what it is.
bool XInputTap::take(const xcb_generic_event_t &event)
{
    const auto &general = reinterpret_cast<const xcb_ge_generic_event_t &>(event); // NOLINT
    if (general.response_type != XCB_GE_GENERIC || general.extension != inputExtension_) {
        takeChange(event);
        return true;
    }
    if (general.event_type == XCB_INPUT_RAW_KEY_PRESS && keyboard_) {
        return deliverKey(reinterpret_cast<const xcb_input_raw_key_press_event_t &>(event)); // NOLINT
    }
    if (buttons_) {
        // Events of buttons and moves are of one type.
        takePointer(general.event_type,
                    reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event)); // NOLINT
    }
    return true;
}

void XInputTap::takeChange(const xcb_generic_event_t &event)
{
    if (keyboard_) {
        keyboard_->take(event);
    }
    if (buttons_) {
        buttons_->take(event);
    }
}

void XInputTap::takePointer(std::uint16_t eventType, const xcb_input_raw_button_press_event_t &event)
{
    if (eventType == XCB_INPUT_RAW_BUTTON_PRESS) {
        buttons_->press(event);
    } else if (eventType == XCB_INPUT_RAW_BUTTON_RELEASE) {
        buttons_->release(event);
    } else if (eventType == XCB_INPUT_RAW_MOTION && movesPointer(event)) {
        questions_.push_back(
            {xcb_input_xi_query_pointer(connection_.get(), connection_.rootWindow(), event.deviceid),
             kindOfMove(buttons_->held())});
    }
}

bool XInputTap::deliverKey(const xcb_input_raw_key_press_event_t &event)
{
    if (ownPresses_.take(static_cast<xcb_keycode_t>(event.detail))) {
        return true;
    }
    const auto evdevCode = static_cast<std::uint16_t>(event.detail - xkbCodeOfEvdev);
    auto press = keyboard_->press(static_cast<xcb_keycode_t>(event.detail));
    return delivery_.deliver({.kind = press.isModifier ? ObservedKind::flagsChanged : ObservedKind::keyDown,
                              .virtualKeyCode = virtualKeyCodeOf(evdevCode),
                              .characters = std::move(press.characters)});
}

} // namespace platform

#include "Platform/Linux/Listening/LibinputTap.h"

#include "Platform/Linux/SilentKeyChoice.h"
#include "Platform/Linux/VirtualKeys.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

XkbPointer<xkb_keymap> keymapOf(const KeyText &keys, const QByteArray &text)
{
    return XkbPointer<xkb_keymap>(text.isEmpty() || !keys.context()
                                      ? nullptr
                                      : xkb_keymap_new_from_string(keys.context(), text.constData(),
                                                                   XKB_KEYMAP_FORMAT_TEXT_V1,
                                                                   XKB_KEYMAP_COMPILE_NO_FLAGS));
}

} // namespace

bool LibinputTap::isPossible()
{
    const SeatDevices devices;
    return devices.hasKeyboard() || devices.hasPointer();
}

std::unique_ptr<InputTap> LibinputTap::create(EventMask mask, InputListener::Handler handler,
                                              std::unique_ptr<SessionView> session)
{
    std::unique_ptr<LibinputTap> tap(new LibinputTap(mask, std::move(handler), std::move(session)));
    return tap->open() ? std::move(tap) : nullptr;
}

LibinputTap::LibinputTap(EventMask mask, InputListener::Handler handler, std::unique_ptr<SessionView> session)
    : delivery_(mask, std::move(handler))
    , session_(std::move(session))
{}

bool LibinputTap::open()
{
    const bool hasDevice = (devices_.hasKeyboard() && delivery_.wantsAny(allKeyKinds)) ||
                           (devices_.hasPointer() && delivery_.wantsAny(allPointerKinds));
    if (!hasDevice || devices_.descriptor() < 0) {
        return false;
    }
    followKeymap();
    if (devices_.lights().capsLock) {
        text_.lock(XKB_MOD_NAME_CAPS);
    }
    if (devices_.lights().numLock) {
        text_.lock(XKB_MOD_NAME_NUM);
    }
    placePointer();
    notifier_.emplace(devices_.descriptor(), QSocketNotifier::Read);
    QObject::connect(&*notifier_, &QSocketNotifier::activated, &*notifier_, [this] { takeIn(); });
    if (!activity_.isActive()) {
        devices_.setOpen(false);
    }
    return true;
}

// Once, as soon as the desktop is known.
void LibinputTap::placePointer()
{
    if (isPlaced_) {
        return;
    }
    if (const auto desktop = session_->desktop(); !desktop.isEmpty()) {
        location_ = {desktop.center().x(), desktop.center().y()};
        isPlaced_ = true;
    }
}

void LibinputTap::setEnabled(bool isEnabled)
{
    delivery_.setEnabled(isEnabled);
    openDevices();
}

// As long as they are wanted and the session's.
void LibinputTap::openDevices()
{
    devices_.setOpen(delivery_.isEnabled() && activity_.isActive());
    held_ = {};
    otherButtons_.clear();
}

void LibinputTap::takeIn()
{
    if (!devices_.dispatch()) {
        notifier_->setEnabled(false);
        return;
    }
    while (auto event = devices_.next()) {
        const auto observed = take(event.get());
        event.reset(); // before the tap, which may end now
        if (observed && !delivery_.deliver(*observed)) {
            return;
        }
    }
}

std::optional<ObservedEvent> LibinputTap::take(libinput_event *event)
{
    switch (libinput_event_get_type(event)) {
    case LIBINPUT_EVENT_KEYBOARD_KEY:
        return takeKey(libinput_event_get_keyboard_event(event));
    case LIBINPUT_EVENT_POINTER_MOTION:
        return takeStep(libinput_event_get_pointer_event(event));
    case LIBINPUT_EVENT_POINTER_MOTION_ABSOLUTE:
        return takePlace(libinput_event_get_pointer_event(event));
    case LIBINPUT_EVENT_POINTER_BUTTON:
        takeButton(libinput_event_get_pointer_event(event));
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

void LibinputTap::followKeymap()
{
    if (const auto text = session_->changedKeymap(); !text.isEmpty()) {
        text_.setKeymap(keymapOf(text_, text));
    }
}

std::optional<ObservedEvent> LibinputTap::takeKey(libinput_event_keyboard *event)
{
    const auto evdevCode = static_cast<std::uint16_t>(libinput_event_keyboard_get_key(event));
    const xkb_keycode_t key = evdevCode + xkbCodeOfEvdev;
    const bool isDown = libinput_event_keyboard_get_key_state(event) == LIBINPUT_KEY_STATE_PRESSED;
    followKeymap();
    auto press = isDown ? text_.press(key) : KeyText::Press();
    text_.follow(key, isDown);
    if (!isDown) {
        return std::nullopt;
    }
    return ObservedEvent{.kind = press.isModifier ? ObservedKind::flagsChanged : ObservedKind::keyDown,
                         .virtualKeyCode = virtualKeyCodeOf(evdevCode),
                         .characters = std::move(press.characters)};
}

void LibinputTap::takeButton(libinput_event_pointer *event)
{
    const bool isHeld = libinput_event_pointer_get_seat_button_count(event) > 0;
    const auto button = libinput_event_pointer_get_button(event);
    switch (button) {
    case BTN_LEFT:
        held_.left = isHeld;
        break;
    case BTN_RIGHT:
        held_.right = isHeld;
        break;
    default:
        otherButtons_.erase(button);
        if (isHeld) {
            otherButtons_.insert(button);
        }
        held_.others = !otherButtons_.empty();
    }
}

ObservedEvent LibinputTap::takeStep(libinput_event_pointer *event)
{
    placePointer();
    return moveTo({location_.x + libinput_event_pointer_get_dx(event),
                   location_.y + libinput_event_pointer_get_dy(event)});
}

ObservedEvent LibinputTap::takePlace(libinput_event_pointer *event)
{
    const auto desktop = session_->desktop();
    const auto width = static_cast<std::uint32_t>(desktop.width());
    const auto height = static_cast<std::uint32_t>(desktop.height());
    return moveTo({desktop.x() + libinput_event_pointer_get_absolute_x_transformed(event, width),
                   desktop.y() + libinput_event_pointer_get_absolute_y_transformed(event, height)});
}

ObservedEvent LibinputTap::moveTo(PointerLocation location)
{
    if (const auto desktop = session_->desktop(); !desktop.isEmpty()) {
        isPlaced_ = true;
        location.x = std::clamp(location.x, desktop.left(), desktop.right());
        location.y = std::clamp(location.y, desktop.top(), desktop.bottom());
    }
    location_ = location;
    return {.kind = kindOfMove(held_), .location = location};
}

} // namespace platform

#include "Tests/Support/Wayland/WaylandInput.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace testsupport {

namespace {

constexpr std::uint32_t seatVersion = 5;
constexpr std::uint32_t xkbCodeOfEvdev = 8;

WaylandInput &input(void *data)
{
    return *static_cast<WaylandInput *>(data);
}

} // namespace

const wl_seat_listener WaylandInput::seatListener{
    [](void *self, wl_seat *, std::uint32_t capabilities) { input(self).setCapabilities(capabilities); },
    [](void *, wl_seat *, const char *) {}};

const wl_pointer_listener WaylandInput::pointerListener{
    [](void *self, wl_pointer *, std::uint32_t, wl_surface *, wl_fixed_t x, wl_fixed_t y) {
        auto &event = input(self).add(WaylandEvent::Kind::pointerEnter);
        event.x = wl_fixed_to_double(x);
        event.y = wl_fixed_to_double(y);
    },
    [](void *, wl_pointer *, std::uint32_t, wl_surface *) {},
    [](void *self, wl_pointer *, std::uint32_t time, wl_fixed_t x, wl_fixed_t y) {
        auto &event = input(self).add(WaylandEvent::Kind::motion);
        event.time = time;
        event.x = wl_fixed_to_double(x);
        event.y = wl_fixed_to_double(y);
    },
    [](void *, wl_pointer *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void *self, wl_pointer *, std::uint32_t time, std::uint32_t axis, wl_fixed_t value) {
        auto &event = input(self).add(WaylandEvent::Kind::axis);
        event.time = time;
        event.code = axis;
        event.y = wl_fixed_to_double(value);
    },
    [](void *, wl_pointer *) {},
    [](void *self, wl_pointer *, std::uint32_t source) {
        input(self).add(WaylandEvent::Kind::axisSource).code = source;
    },
    [](void *self, wl_pointer *, std::uint32_t, std::uint32_t axis) {
        input(self).add(WaylandEvent::Kind::axisStop).code = axis;
    },
    [](void *, wl_pointer *, std::uint32_t, std::int32_t) {},
    nullptr};

const wl_keyboard_listener WaylandInput::keyboardListener{
    [](void *self, wl_keyboard *, std::uint32_t, std::int32_t file, std::uint32_t size) {
        input(self).readKeymap(file, size);
    },
    [](void *self, wl_keyboard *, std::uint32_t, wl_surface *, wl_array *) {
        input(self).add(WaylandEvent::Kind::focus);
    },
    [](void *self, wl_keyboard *, std::uint32_t, wl_surface *) { input(self).add(WaylandEvent::Kind::blur); },
    [](void *self, wl_keyboard *, std::uint32_t, std::uint32_t time, std::uint32_t key, std::uint32_t state) {
        input(self).addKey(time, key, state);
    },
    [](void *self, wl_keyboard *, std::uint32_t, std::uint32_t depressed, std::uint32_t latched,
       std::uint32_t locked,
       std::uint32_t group) { input(self).addModifiers(depressed, latched, locked, group); },
    [](void *, wl_keyboard *, std::int32_t, std::int32_t) {}};

WaylandInput::WaylandInput(const WaylandClient &client)
    : client_(client)
    , seat_(client.bind<wl_seat>(wl_seat_interface, seatVersion))
    , context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
{
    wl_seat_add_listener(seat_, &seatListener, this);
    client_.sync();
}

WaylandInput::~WaylandInput()
{
    xkb_state_unref(state_);
    xkb_keymap_unref(keymap_);
    xkb_context_unref(context_);
    if (keyboard_) {
        wl_keyboard_destroy(keyboard_);
    }
    if (pointer_) {
        wl_pointer_destroy(pointer_);
    }
    wl_seat_destroy(seat_);
}

const std::vector<WaylandEvent> &WaylandInput::events()
{
    client_.drain();
    return events_;
}

std::vector<WaylandEvent> WaylandInput::events(WaylandEvent::Kind kind)
{
    std::vector<WaylandEvent> found;
    std::ranges::copy_if(events(), std::back_inserter(found),
                         [kind](const WaylandEvent &event) { return event.kind == kind; });
    return found;
}

void WaylandInput::clear()
{
    client_.sync();
    events_.clear();
}

WaylandEvent &WaylandInput::add(WaylandEvent::Kind kind)
{
    auto &event = events_.emplace_back();
    event.kind = kind;
    event.seenAt = std::chrono::steady_clock::now();
    return event;
}

void WaylandInput::setCapabilities(std::uint32_t capabilities)
{
    if ((capabilities & WL_SEAT_CAPABILITY_POINTER) != 0 && !pointer_) {
        pointer_ = wl_seat_get_pointer(seat_);
        wl_pointer_add_listener(pointer_, &pointerListener, this);
    }
    if ((capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0 && !keyboard_) {
        keyboard_ = wl_seat_get_keyboard(seat_);
        wl_keyboard_add_listener(keyboard_, &keyboardListener, this);
    }
}

void WaylandInput::readKeymap(int file, std::uint32_t size)
{
    QFile source;
    static_cast<void>(source.open(file, QIODevice::ReadOnly, QFile::AutoCloseHandle));
    source.seek(0);
    const auto text = source.read(size);
    xkb_state_unref(state_);
    xkb_keymap_unref(keymap_);
    keymap_ = xkb_keymap_new_from_string(context_, text.constData(), XKB_KEYMAP_FORMAT_TEXT_V1,
                                         XKB_KEYMAP_COMPILE_NO_FLAGS);
    state_ = keymap_ ? xkb_state_new(keymap_) : nullptr;
    add(WaylandEvent::Kind::keymap).text = QString::fromUtf8(text.constData());
}

void WaylandInput::addKey(std::uint32_t time, std::uint32_t key, std::uint32_t state)
{
    auto &event = add(WaylandEvent::Kind::key);
    event.time = time;
    event.code = key;
    event.isDown = state == WL_KEYBOARD_KEY_STATE_PRESSED;
    if (state_) {
        char text[64] = {};
        xkb_state_key_get_utf8(state_, key + xkbCodeOfEvdev, text, sizeof text);
        event.symbol = xkb_state_key_get_one_sym(state_, key + xkbCodeOfEvdev);
        event.text = QString::fromUtf8(text);
    }
}

void WaylandInput::addModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                                std::uint32_t group)
{
    if (state_) {
        xkb_state_update_mask(state_, depressed, latched, locked, 0, 0, group);
    }
    add(WaylandEvent::Kind::modifiers).code = depressed | locked;
}

} // namespace testsupport

#include "Platform/Linux/Wayland/SeatKeyboard.h"

#include <cstring>

namespace platform {

namespace {

// A large one has 100 kB.
constexpr std::uint32_t mostBytes = 4U << 20U;

} // namespace

const wl_seat_listener SeatKeyboard::seatListener{[](void *self, wl_seat *, std::uint32_t capabilities) {
                                                      static_cast<SeatKeyboard *>(self)->setHasKeyboard(
                                                          (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0);
                                                  },
                                                  [](void *, wl_seat *, const char *) {}};

const wl_keyboard_listener SeatKeyboard::keyboardListener{
    [](void *self, wl_keyboard *, std::uint32_t format, std::int32_t file, std::uint32_t size) {
        auto &keyboard = *static_cast<SeatKeyboard *>(self);
        keyboard.keymap_ = FileDescriptor(file);
        keyboard.keymapSize_ = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 ? size : 0;
        ++keyboard.keymapCount_;
    },
    [](void *, wl_keyboard *, std::uint32_t, wl_surface *, wl_array *) {},
    [](void *, wl_keyboard *, std::uint32_t, wl_surface *) {},
    [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void *, wl_keyboard *, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    [](void *, wl_keyboard *, std::int32_t, std::int32_t) {}};

void SeatKeyboard::Release::operator()(wl_keyboard *keyboard) const
{
    if (wl_keyboard_get_version(keyboard) >= WL_KEYBOARD_RELEASE_SINCE_VERSION) {
        wl_keyboard_release(keyboard);
    } else {
        wl_keyboard_destroy(keyboard);
    }
}

SeatKeyboard::SeatKeyboard(WaylandObject<wl_seat> seat)
    : seat_(std::move(seat))
{
    wl_seat_add_listener(seat_.get(), &seatListener, this);
}

// To ask a seat without one for its keyboard is an error that ends the connection.
void SeatKeyboard::setHasKeyboard(bool hasKeyboard)
{
    if (!hasKeyboard) {
        keyboard_.reset();
        keymapSize_ = 0;
    } else if (!keyboard_) {
        keyboard_.reset(wl_seat_get_keyboard(seat_.get()));
        wl_keyboard_add_listener(keyboard_.get(), &keyboardListener, this);
    }
}

// Read and not mapped: a file that somebody makes shorter cannot end the process.
QByteArray SeatKeyboard::keymapText() const
{
    if (keymapSize_ == 0 || keymapSize_ > mostBytes) {
        return {};
    }
    QByteArray text(static_cast<qsizetype>(keymapSize_), '\0');
    const auto size = pread(keymap_.get(), text.data(), keymapSize_, 0);
    text.truncate(size > 0 ? static_cast<qsizetype>(strnlen(text.constData(), static_cast<std::size_t>(size)))
                           : 0);
    return text;
}

} // namespace platform

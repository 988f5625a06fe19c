// The keymap of a seat's keyboards.
#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Wayland/WaylandConnection.h"

#include <wayland-client-protocol.h>

#include <QByteArray>

namespace platform {

// Follows the keymap that the compositor tells its clients: that of the keyboard which was used last. A
// client without a window gets no keys and no modifiers. The connection's thread.
class SeatKeyboard
{
public:
    // The newest version of wl_seat that it speaks.
    static constexpr std::uint32_t newestVersion = 7;

    // REQUIRES: there is a seat, and it was just bound; its connection outlives this.
    explicit SeatKeyboard(WaylandObject<wl_seat> seat);
    SeatKeyboard(const SeatKeyboard &) = delete;
    SeatKeyboard &operator=(const SeatKeyboard &) = delete;

    [[nodiscard]] wl_seat *seat() const { return seat_.get(); }
    // The keymap's text; empty where the seat has no keyboard or its keymap cannot be read.
    [[nodiscard]] QByteArray keymapText() const;
    // How many keymaps the compositor has told: one that has changed is one more.
    [[nodiscard]] int keymapCount() const { return keymapCount_; }

private:
    struct Release
    {
        void operator()(wl_keyboard *keyboard) const;
    };

    void setHasKeyboard(bool hasKeyboard);

    static const wl_seat_listener seatListener;
    static const wl_keyboard_listener keyboardListener;

    WaylandObject<wl_seat> seat_;
    std::unique_ptr<wl_keyboard, Release> keyboard_;
    FileDescriptor keymap_;
    std::uint32_t keymapSize_ = 0;
    int keymapCount_ = 0;
};

} // namespace platform

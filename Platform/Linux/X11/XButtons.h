// The pointer's buttons that are held on an X server.
#pragma once

#include "Platform/Linux/Listening/HeldButtons.h"
#include "Platform/Linux/X11/XConnection.h"

#include <xcb/xinput.h>

#include <bitset>
#include <vector>

namespace platform {

// Follows the raw events, which come in the order of the moves between them, by what each button means to the
// user: a left-handed one's left button is the right one. One thread, that of the connection.
class XButtons
{
public:
    // Asks the server. REQUIRES: the connection outlives it.
    explicit XButtons(const XConnection &connection);

    // Takes what is no raw event, for it may be about the buttons' meaning; other events are left alone.
    void take(const xcb_generic_event_t &event);
    void press(const xcb_input_raw_button_press_event_t &event) { held_.set(meaningOf(event.detail)); }
    void release(const xcb_input_raw_button_press_event_t &event) { held_.reset(meaningOf(event.detail)); }

    [[nodiscard]] HeldButtons held() const;

private:
    void readHeld();
    void readMeanings();
    [[nodiscard]] std::uint8_t meaningOf(std::uint32_t button);

    const XConnection &connection_;
    std::vector<std::uint8_t> meanings_; // of the buttons from 1 on
    bool areMeaningsStale_ = false;
    std::bitset<256> held_;
};

} // namespace platform

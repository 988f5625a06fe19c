// Sees the input of an X11 session.
#pragma once

#include "Platform/Linux/Listening/Delivery.h"
#include "Platform/Linux/X11/OwnPresses.h"
#include "Platform/Linux/X11/XButtons.h"
#include "Platform/Linux/X11/XConnection.h"
#include "Platform/Linux/X11/XKeyText.h"

#include <xcb/xinput.h>

#include <QSocketNotifier>

#include <deque>
#include <optional>

namespace platform {

// The raw events of all master devices on the root window: no grab of another program hides them, and nobody
// else gets any less of them. They come with neither a place nor a text. The server is asked for the
// pointer's place after each move, without waiting for the answer; what a key types is worked out from the
// server's layout and modifiers. What this process types itself (TextTyper.h) is left out, since it is no
// input of the user's. A connection of its own, which a grab of the server does not hold up.
class XInputTap final : public InputTap
{
public:
    // Whether an X server answers that has XInput 2.2 and is not Xwayland, where only X programs' input is.
    [[nodiscard]] static bool isPossible();
    // Nothing where it is not possible.
    [[nodiscard]] static std::unique_ptr<InputTap> create(EventMask mask, InputListener::Handler handler);

    // A connection that is lost ends the tap.
    void setEnabled(bool isEnabled) override;

private:
    // Where the pointer is after a move.
    struct Question
    {
        xcb_input_xi_query_pointer_cookie_t cookie;
        ObservedKind kind;
    };

    XInputTap(EventMask mask, InputListener::Handler handler);

    [[nodiscard]] bool open();
    void select(std::uint32_t events);
    [[nodiscard]] std::uint32_t wantedEvents() const;

    void takeIn();
    [[nodiscard]] bool takeEvents(bool &isAnythingNew);
    [[nodiscard]] bool takeAnswers(bool &isAnythingNew);
    [[nodiscard]] bool take(const xcb_generic_event_t &event);
    void takeChange(const xcb_generic_event_t &event);
    void takePointer(std::uint16_t eventType, const xcb_input_raw_button_press_event_t &event);
    [[nodiscard]] bool deliverKey(const xcb_input_raw_key_press_event_t &event);

    Delivery delivery_;
    XConnection connection_;
    std::uint8_t inputExtension_ = 0;
    std::unique_ptr<XKeyText> keyboard_; // where keys are wanted
    OwnPresses ownPresses_;
    std::optional<XButtons> buttons_; // where moves are wanted
    std::deque<Question> questions_;
    std::optional<QSocketNotifier> notifier_;
};

} // namespace platform

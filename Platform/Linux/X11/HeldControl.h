// The Control key, while the user holds it and a text is typed.
#pragma once

#include "Platform/Linux/X11/XKeyboards.h"

#include <set>

namespace platform {

// Some programs keep an account of the modifiers of their own, beside what each key says, and make a control
// character of each letter while Control is held. So it goes up for them, and down again where it is still
// held. One thread.
class HeldControl
{
public:
    // REQUIRES: startKeyboardExtensions(); the connection outlives it.
    explicit HeldControl(XConnection &connection)
        : connection_(connection)
    {}

    // Lets go of what is held; to be asked before each key, as the user may press it at any time. Queued.
    void release();
    // Holds again what was let go of and is still held. Queued.
    void restore();

private:
    [[nodiscard]] bool isHeldAt(XKeyboard keyboard);
    void noteHolders();
    void noteHeldKeys();
    void post(std::uint8_t type, xcb_keycode_t key);

    XConnection &connection_;
    std::set<xcb_keycode_t> released_;
    std::set<XKeyboard> holders_; // keyboards with a hand on them
    bool isHeldByXtest_ = false;  // by another program, which has not let go
};

} // namespace platform

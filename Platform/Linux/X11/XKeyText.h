// The keyboard of an X server: its layout and its modifiers, followed live.
#pragma once

#include "Platform/Linux/Listening/KeyText.h"
#include "Platform/Linux/X11/XConnection.h"

#include <memory>

namespace platform {

// The keyboard that goes with the pointer of a client without a window. One thread, that of the connection.
class XKeyText
{
public:
    // Nothing where the server has no XKB, or its layout cannot be read. REQUIRES: the connection outlives
    // it.
    [[nodiscard]] static std::unique_ptr<XKeyText> create(const XConnection &connection);

    // Takes an event that is about the layout or the modifiers; others are left alone.
    void take(const xcb_generic_event_t &event);

    // What a key types that goes down after the events taken so far. Asks the server where the layout has
    // changed.
    [[nodiscard]] KeyText::Press press(xcb_keycode_t key);

private:
    explicit XKeyText(const XConnection &connection);

    [[nodiscard]] bool open();
    [[nodiscard]] bool selectEvents();
    [[nodiscard]] bool readState();
    [[nodiscard]] bool readLayout();

    const XConnection &connection_;
    KeyText text_;
    std::uint8_t firstEvent_ = 0;
    std::int32_t device_ = -1;
    bool isLayoutStale_ = false;
};

} // namespace platform

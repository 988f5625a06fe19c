// Scrolling by less than a notch through a real pointer's scroll axis.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <cstdint>
#include <optional>

namespace platform {

// The vertical scroll axis of a pointer device.
struct ScrollAxis
{
    std::uint8_t device = 0; // XInput device id, 2 to 127
    std::uint8_t axis = 0;   // index of the valuator
    std::int32_t pixel = 1;  // valuator units that stand for one pixel downwards; may be negative
    // Whether the pointer on the screen has the device's axes now, as it has after the user moved the device.
    bool isCurrent = true;

    bool operator==(const ScrollAxis &) const = default;
};

// Valuator units that stand for one pixel downwards, for an axis that counts `increment` units a notch: a
// sixtieth of a notch, rounded to at least one unit. A notch is some 60 pixels in the common toolkits (60 in
// Qt, 61 in a GTK view 480 pixels high). 0 where one unit is a whole notch already.
[[nodiscard]] std::int32_t unitsOfOnePixel(double increment);

// The axis to scroll by now: that of the pointer the user moved last, else of the first one that has one.
// Nothing where no attached pointer has a vertical scroll axis of less than a notch (a server without smooth
// scrolling, an XTEST pointer alone).
[[nodiscard]] std::optional<ScrollAxis> findScrollAxis(XConnection &connection);

// Moves the axis by `pixels`, positive downwards; 0 sends an event that changes nothing. Queued; the caller
// flushes.
void queueScroll(XConnection &connection, const ScrollAxis &axis, std::int32_t pixels);

} // namespace platform

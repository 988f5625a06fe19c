// The input events that the program can ask the system for, as plain values.
#pragma once

#include <cstdint>
#include <variant>

namespace platform {

// A place on the desktop, in points of the system's own pointer coordinates.
struct PointerLocation
{
    double x = 0;
    double y = 0;

    bool operator==(const PointerLocation &) const = default;
};

// The pointer goes to `location`.
struct MouseMoved
{
    PointerLocation location;

    bool operator==(const MouseMoved &) const = default;
};

// One key goes down or comes up. `virtualKeyCode` is a code of the common Apple keyboard table (55 is the
// left Command key, 54 the right one); `flags` is the whole state of modifiers that the event carries.
struct KeyEvent
{
    std::uint16_t virtualKeyCode = 0;
    bool isDown = false;
    std::uint64_t flags = 0;

    bool operator==(const KeyEvent &) const = default;
};

// A vertical scroll by `dy` pixels of a continuous wheel.
struct ScrollPixels
{
    std::int32_t dy = 0;

    bool operator==(const ScrollPixels &) const = default;
};

using InputEvent = std::variant<MouseMoved, KeyEvent, ScrollPixels>;

} // namespace platform

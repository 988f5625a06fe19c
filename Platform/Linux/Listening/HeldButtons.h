// What a move of the pointer is called, by the buttons that are held.
#pragma once

#include "Platform/InputListener.h"

namespace platform {

struct HeldButtons
{
    bool left = false;
    bool right = false;
    bool others = false;
};

// The left button before the right one, and both before the others.
[[nodiscard]] constexpr ObservedKind kindOfMove(const HeldButtons &held)
{
    if (held.left) {
        return ObservedKind::leftMouseDragged;
    }
    if (held.right) {
        return ObservedKind::rightMouseDragged;
    }
    return held.others ? ObservedKind::otherMouseDragged : ObservedKind::mouseMoved;
}

} // namespace platform

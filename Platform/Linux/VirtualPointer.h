// The pointer of a system that does not tell where it is.
#pragma once

#include "Platform/InputEvent.h"
#include "Platform/Linux/PointerPixel.h"

#include <optional>

namespace platform {

// A location of its own that follows the moves posted, from 0, 0 on, in whole pixels: a step and its return
// cancel out exactly. At an edge of the desktop the real pointer stays behind; the step the other way then
// moves it by a pixel, which the next pair of steps takes back.
class VirtualPointer
{
public:
    struct Step
    {
        double dx = 0;
        double dy = 0;

        bool operator==(const Step &) const = default;
    };

    [[nodiscard]] PointerLocation location() const { return location_; }

    // The way to a place; nothing where no pointer can be there.
    [[nodiscard]] std::optional<Step> stepTo(PointerLocation place) const
    {
        const auto x = pointerPixel(place.x);
        const auto y = pointerPixel(place.y);
        return x && y ? std::optional(Step{*x - location_.x, *y - location_.y}) : std::nullopt;
    }

    // The step was posted.
    void advance(Step step) { location_ = {location_.x + step.dx, location_.y + step.dy}; }

private:
    PointerLocation location_;
};

} // namespace platform

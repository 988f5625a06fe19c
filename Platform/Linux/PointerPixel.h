// Pointer coordinates in whole pixels.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace platform {

// The coordinate rounded to a pixel; nothing where no pointer can be there: X has 16 bits for it, and no
// desktop is larger.
[[nodiscard]] inline std::optional<std::int16_t> pointerPixel(double coordinate)
{
    using Range = std::numeric_limits<std::int16_t>;
    const double rounded = std::round(coordinate);
    if (!(rounded >= Range::min() && rounded <= Range::max())) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(rounded);
}

} // namespace platform

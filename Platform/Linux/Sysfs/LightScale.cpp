#include "Platform/Linux/Sysfs/LightScale.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double brightestByte = 255;

} // namespace

double luxOfLight(std::uint64_t light)
{
    const auto x = static_cast<double>(std::min(light, brightestLight));
    const double lux =
        (((-2.978303814e-27 * x + 2.635687683e-19) * x - 3.459747434e-12) * x + 3.905829689e-5) * x -
        0.1932594532;
    return std::max(lux, 0.0);
}

std::uint64_t lightOfLux(double lux)
{
    if (!(lux > 0)) {
        return 0;
    }
    std::uint64_t below = 0;
    std::uint64_t above = brightestLight;
    while (below < above) {
        const auto middle = (below + above) / 2;
        if (luxOfLight(middle) < lux) {
            below = middle + 1;
        } else {
            above = middle;
        }
    }
    return below;
}

std::uint64_t lightOfByte(double value)
{
    const double part = std::isnan(value) ? 0 : std::clamp(value / brightestByte, 0.0, 1.0);
    return static_cast<std::uint64_t>(std::llround(part * static_cast<double>(brightestLight)));
}

} // namespace platform

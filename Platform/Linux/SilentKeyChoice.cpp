#include "Platform/Linux/SilentKeyChoice.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;

constexpr std::uint16_t keyF19 = lowestSilentKey;
constexpr std::uint16_t keyF24 = 194;
constexpr std::uint16_t keyUnknown = highestSilentKey;

std::array<std::uint16_t, 3> candidatesFor(std::uint16_t virtualKeyCode)
{
    if (virtualKeyCode == leftCommand) {
        return {keyF24, keyUnknown, keyF19};
    }
    return {keyF19, keyUnknown, keyF24};
}

} // namespace

std::optional<std::uint16_t> chooseSilentKey(std::uint16_t virtualKeyCode,
                                             const std::function<bool(std::uint16_t)> &isUsed)
{
    if (virtualKeyCode != leftCommand && virtualKeyCode != rightCommand) {
        return std::nullopt;
    }
    const auto candidates = candidatesFor(virtualKeyCode);
    const auto found = std::ranges::find_if_not(candidates, isUsed);
    return found == candidates.end() ? std::nullopt : std::optional(*found);
}

} // namespace platform

#include "Platform/Linux/HeldKey.h"

#include <utility>

namespace platform {

bool HeldKey::press(std::uint16_t virtualKeyCode, std::optional<std::uint16_t> carrier)
{
    virtualKeyCode_ = virtualKeyCode;
    carrier_ = carrier;
    return carrier_.has_value();
}

std::optional<std::uint16_t> HeldKey::release(std::uint16_t virtualKeyCode)
{
    if (virtualKeyCode != virtualKeyCode_) {
        return std::nullopt;
    }
    return std::exchange(carrier_, std::nullopt);
}

} // namespace platform

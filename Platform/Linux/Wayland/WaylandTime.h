// The clock of input events.
#pragma once

#include <chrono>
#include <cstdint>

namespace platform {

// Milliseconds, as the compositor stamps the events of its own devices.
[[nodiscard]] inline std::uint32_t waylandTime()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

} // namespace platform

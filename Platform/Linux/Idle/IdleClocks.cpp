#include "Platform/Linux/Idle/IdleClocks.h"

#include <array>

namespace platform {

std::unique_ptr<IdleClock> openIdleClock()
{
    constexpr std::array clocks{openXScreenSaverClock, openMutterClock, openCompositorClock,
                                openScreenSaverServiceClock};
    for (const auto open : clocks) {
        if (auto clock = open()) {
            return clock;
        }
    }
    return nullptr;
}

} // namespace platform

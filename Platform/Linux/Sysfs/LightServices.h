// Light sensors in the part of the light controller: a connection's method 0 gives the two channels, in the
// controller's scale (LightScale.h).
#pragma once

#include "Platform/Linux/Sysfs/HardwareService.h"

namespace platform {

// Apple's system controller: devices/platform/applesmc.768/light, "(left,right)", 0 to 255 each. A machine
// with one sensor tells it as the left one and 0 as the right one (applesmc.c in the kernel); both channels
// are alike then. `root` is that of the file system.
[[nodiscard]] HardwareServices applesmcLights(const std::filesystem::path &root);

// Light sensors of the kernel's sensor subsystem, in lux; both channels are alike.
[[nodiscard]] HardwareServices iioLights(const std::filesystem::path &root);

} // namespace platform

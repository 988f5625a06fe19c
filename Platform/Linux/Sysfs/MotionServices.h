// Accelerometers in the part of a motion sensor: a connection's method 5 gives 40 bytes, of which the first
// six are x, y and z, each 16 bits, signed, the lowest byte first, in 1/256 g, as far as they fit. Axes are
// those of the device's driver; one that it does not measure is 0.
#pragma once

#include "Platform/Linux/Sysfs/HardwareService.h"

namespace platform {

// `root` is that of the file system.

// Apple's system controller: devices/platform/applesmc.768/position, "(x,y,z)" in 1/256 g: the driver calls
// the numbers sp78, which have eight binary places.
[[nodiscard]] HardwareServices applesmcMotion(const std::filesystem::path &root);

// The disk guard of HP's portables: devices/platform/lis3lv02d/position, "(x,y,z)" in 1/1000 g, into which
// the driver brings them (lis3lv02d.c in the kernel).
[[nodiscard]] HardwareServices lis3lv02dMotion(const std::filesystem::path &root);

// The disk guard of ThinkPads: devices/platform/hdaps/position and calibrate, "(x,y)" each, the second being
// the position at rest. Nobody documents the unit; 180 to a g is what browsers found for their tilt (the
// device motion of Mozilla's since 2009). z is not measured.
[[nodiscard]] HardwareServices hdapsMotion(const std::filesystem::path &root);

// Accelerometers of the kernel's sensor subsystem, in m/s²; a g is 9.80665 of them (CGPM of 1901).
[[nodiscard]] HardwareServices iioMotion(const std::filesystem::path &root);

} // namespace platform

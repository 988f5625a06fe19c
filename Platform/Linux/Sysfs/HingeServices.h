// Hinges in the part of a portable's display: the property "lid-angle" is the angle between its halves in
// degrees, 0 when closed, 360 when folded right round. What is beyond these by no more than half a degree, as
// rounding makes it, counts as them; what cannot be an angle of a hinge is left out.
#pragma once

#include "Platform/Linux/Sysfs/HardwareService.h"

namespace platform {

// Hinges of the kernel's sensor subsystem: a channel in_anglN whose label is "hinge", in radians as the
// kernel's documentation has it, or the channel in_angl of a device named cros-ec-lid-angle..., whose driver
// tells degrees (and 500 where it does not know). `root` is that of the file system.
[[nodiscard]] HardwareServices iioHinges(const std::filesystem::path &root);

} // namespace platform

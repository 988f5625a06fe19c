// Which hardware of Linux answers to which class name of the registry.
#pragma once

#include "Platform/Linux/Sysfs/HardwareService.h"

namespace platform {

// The services of the class that are there now, in a fixed order; none for any other name. `root` is that of
// the file system. Any thread.
[[nodiscard]] HardwareServices servicesOfClass(std::string_view className, const std::filesystem::path &root);

} // namespace platform

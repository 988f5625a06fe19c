#include "Platform/Linux/Sysfs/ServiceTable.h"

#include "Platform/Linux/Sysfs/HidrawServices.h"
#include "Platform/Linux/Sysfs/HingeServices.h"
#include "Platform/Linux/Sysfs/LightServices.h"
#include "Platform/Linux/Sysfs/MotionServices.h"

#include <array>

namespace platform {

namespace {

struct Row
{
    std::string_view className;
    HardwareServices (*find)(const std::filesystem::path &root);
};

// The first of a name comes first. Of the motion sensors, which are asked for in this order, the kernel's
// common sensor subsystem has units that are documented; the drivers of disk guards stay behind it.
constexpr std::array table{
    Row{"AppleLMUController", applesmcLights},
    Row{"AppleLMUController", iioLights},
    Row{"AppleBacklightDisplay", iioHinges},
    Row{"IOHIDMotionSensor", iioMotion},
    Row{"AppleEmbeddedMotionSensor", lis3lv02dMotion},
    Row{"AppleEmbeddedMotionSensor", hdapsMotion},
    Row{"SMCMotionSensor", applesmcMotion},
    Row{"AppleSPUHIDDriver", hidrawDrivers},
    Row{"AppleSPUHIDDevice", hidrawDevices},
};

} // namespace

HardwareServices servicesOfClass(std::string_view className, const std::filesystem::path &root)
{
    HardwareServices services;
    for (const auto &row : table) {
        if (row.className == className) {
            const auto found = row.find(root);
            services.insert(services.end(), found.begin(), found.end());
        }
    }
    return services;
}

} // namespace platform

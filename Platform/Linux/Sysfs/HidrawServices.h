// HID devices in the part of the sensor processor's: those that the kernel has a file for raw reports of.
#pragma once

#include "Platform/Linux/Sysfs/HardwareService.h"

namespace platform {

// `root` is that of the file system: class/hidraw/hidrawN/device/report_descriptor below sys tells what a
// device is, without a permission, and dev/hidrawN is opened for its reports.

// All of them, with the properties "PrimaryUsagePage" and "PrimaryUsage": the caller chooses. One whose
// descriptor cannot be read, or is none, has no properties.
[[nodiscard]] HardwareServices hidrawDevices(const std::filesystem::path &root);

// The accelerometers among them (usage 3 of the vendor's page 0xFF00), whose properties are set through their
// feature reports, as HidFeature.h has it. That needs the permission to write to the device's file.
[[nodiscard]] HardwareServices hidrawDrivers(const std::filesystem::path &root);

} // namespace platform

// Settings of a HID sensor that are numbers in its feature reports.
#pragma once

#include "Platform/Linux/Sysfs/HidReportDescriptor.h"

#include <string_view>

namespace platform {

// A number in a feature report, and what to write there.
struct HidSetting
{
    std::uint8_t reportId = 0;
    std::size_t reportSize = 0; // bytes of the whole report, without its number
    std::size_t bitOffset = 0;  // behind the report's number
    std::size_t bitSize = 0;    // at most 32
    std::uint32_t value = 0;
};

// What a property of the sensor's driver is in its feature reports (HID Usage Tables, page 0x20 "Sensors"):
//   SensorPropertyReportingState   usage 0x316; 0 says no events, 1 all events
//   SensorPropertyPowerState       usage 0x319; 0 says undefined, 1 full power
//   ReportInterval, microseconds   usage 0x30E, milliseconds
// A state is a number where the device has one for it, else the choice of the usage that stands for it.
// Numbers are brought into the range that the device allows. Nothing where the device has no such setting.
// Any thread.
[[nodiscard]] std::optional<HidSetting> hidSetting(const HidReportDescriptor &descriptor,
                                                   std::string_view property, std::int32_t value);

// Writes the setting's value into a report, whose first byte is the report's number, or 0.
// REQUIRES: the report has 1 + setting.reportSize bytes.
void writeSetting(const HidSetting &setting, std::span<std::byte> report);

// The feature reports of an open device. A report's first byte is its number, or 0.
class HidFeatureFile
{
public:
    HidFeatureFile() = default;
    HidFeatureFile(const HidFeatureFile &) = delete;
    HidFeatureFile &operator=(const HidFeatureFile &) = delete;
    virtual ~HidFeatureFile() = default;

    // Fills in the rest of the report behind its number. Gives how many bytes came, with the number; below 0
    // it is the kernel's error number, as less than nothing.
    [[nodiscard]] virtual int get(std::span<std::byte> report) = 0;
    // Gives 0, or the kernel's error number.
    [[nodiscard]] virtual int set(std::span<std::byte> report) = 0;
};

// Sets the device's setting, and leaves the rest of its report as the device has it. Gives 0, or the kernel's
// error number, which is EIO where the device tells less than the report; nothing is set then.
[[nodiscard]] int applySetting(const HidSetting &setting, HidFeatureFile &file);

} // namespace platform

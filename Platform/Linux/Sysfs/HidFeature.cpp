#include "Platform/Linux/Sysfs/HidFeature.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace platform {

namespace {

constexpr std::uint16_t sensorPage = 0x20;
constexpr std::size_t widestSetting = 32;
constexpr std::int32_t lastState = 15; // that the usage tables have room for

struct Property
{
    std::string_view name;
    std::uint16_t usage;
    std::uint16_t firstState; // the usage of the state 0; none where it is a quantity
    std::int32_t unit;        // of the property, to one of the device
};

constexpr std::array properties{
    Property{"SensorPropertyReportingState", 0x316, 0x840, 1},
    Property{"SensorPropertyPowerState", 0x319, 0x850, 1},
    Property{"ReportInterval", 0x30E, 0, 1000},
};

std::size_t indexOf(const HidField &field, std::uint16_t usage)
{
    const auto found = std::ranges::find(field.usages, HidUsage{sensorPage, usage});
    return static_cast<std::size_t>(found - field.usages.begin());
}

// The place of number `index` of the field, with a number to write.
HidSetting settingAt(const HidField &field, std::size_t index, std::int64_t number)
{
    return {.reportId = field.reportId,
            .bitOffset = field.bitOffset + index * field.bitSize,
            .bitSize = field.bitSize,
            .value = static_cast<std::uint32_t>(number)};
}

std::optional<HidSetting> settingIn(const HidField &field, const Property &property, std::int32_t value)
{
    if (field.type != HidReportType::feature || field.isConstant || field.count == 0 || field.bitSize == 0 ||
        field.bitSize > widestSetting) {
        return std::nullopt;
    }
    if (const auto index = indexOf(field, property.usage); field.isVariable && index < field.usages.size()) {
        const auto highest = std::max(field.minimum, field.maximum);
        return settingAt(field, index,
                         std::clamp<std::int64_t>(value / property.unit, field.minimum, highest));
    }
    if (field.isVariable || field.collection != HidUsage{sensorPage, property.usage} ||
        property.firstState == 0 || value < 0 || value > lastState) {
        return std::nullopt;
    }
    const auto state = indexOf(field, static_cast<std::uint16_t>(property.firstState + value));
    return state < field.usages.size()
               ? std::optional(settingAt(field, 0, field.minimum + static_cast<std::int64_t>(state)))
               : std::nullopt;
}

// Of the feature report with that number, in whole bytes.
std::size_t sizeOfFeature(const HidReportDescriptor &descriptor, std::uint8_t reportId)
{
    std::size_t bits = 0;
    for (const auto &field : descriptor.fields) {
        if (field.type == HidReportType::feature && field.reportId == reportId) {
            bits = field.bitOffset + field.bitSize * field.count;
        }
    }
    return (bits + 7) / 8;
}

} // namespace

std::optional<HidSetting> hidSetting(const HidReportDescriptor &descriptor, std::string_view property,
                                     std::int32_t value)
{
    const auto *const known = std::ranges::find(properties, property, &Property::name);
    if (known == properties.end()) {
        return std::nullopt;
    }
    for (const auto &field : descriptor.fields) {
        if (auto setting = settingIn(field, *known, value)) {
            setting->reportSize = sizeOfFeature(descriptor, setting->reportId);
            return setting;
        }
    }
    return std::nullopt;
}

void writeSetting(const HidSetting &setting, std::span<std::byte> report)
{
    for (std::size_t bit = 0; bit < setting.bitSize; ++bit) {
        const auto place = 8 + setting.bitOffset + bit;
        const auto mask = std::byte(1) << (place % 8);
        const bool isSet = (setting.value >> bit & 1U) != 0;
        report[place / 8] = isSet ? report[place / 8] | mask : report[place / 8] & ~mask;
    }
}

int applySetting(const HidSetting &setting, HidFeatureFile &file)
{
    std::vector<std::byte> report(1 + setting.reportSize);
    report.front() = static_cast<std::byte>(setting.reportId);
    if (const int size = file.get(report); size < static_cast<int>(report.size())) {
        return size < 0 ? -size : EIO;
    }
    report.front() = static_cast<std::byte>(setting.reportId);
    writeSetting(setting, report);
    return file.set(report);
}

} // namespace platform

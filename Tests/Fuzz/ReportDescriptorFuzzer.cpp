// HID report descriptors from any bytes. A field lies within a report of possible length, and what is set in
// a feature report changes the setting's bits alone.

#include "Platform/Linux/Sysfs/HidFeature.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace platform;

constexpr std::size_t longestReport = std::size_t{16} * 1024;

void require(bool isTrue)
{
    if (!isTrue) {
        std::abort();
    }
}

bool isSet(std::span<const std::byte> report, std::size_t bit)
{
    return (std::to_integer<unsigned>(report[bit / 8]) >> (bit % 8) & 1U) != 0;
}

void checkField(const HidField &field, bool hasReportIds)
{
    require(field.bitOffset + field.bitSize * field.count <= longestReport * 8);
    require(hasReportIds || field.reportId == 0);
    require(!field.isConstant || field.usages.empty());
    require(!field.isVariable || field.usages.size() <= field.count);
}

void checkSetting(const HidSetting &setting)
{
    require(setting.reportSize <= longestReport && setting.bitSize >= 1 && setting.bitSize <= 32);
    require(setting.bitOffset + setting.bitSize <= setting.reportSize * 8);
    const std::vector<std::byte> before(1 + setting.reportSize, std::byte(0x5A));
    auto report = before;
    writeSetting(setting, report);
    const auto first = (8 + setting.bitOffset) / 8;
    const auto behind = (8 + setting.bitOffset + setting.bitSize + 7) / 8;
    require(std::equal(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(first), report.begin()));
    require(std::equal(before.begin() + static_cast<std::ptrdiff_t>(behind), before.end(),
                       report.begin() + static_cast<std::ptrdiff_t>(behind)));
    for (std::size_t bit = first * 8; bit < behind * 8; ++bit) {
        const auto place = bit - 8 - setting.bitOffset;
        const bool isPart = bit >= 8 + setting.bitOffset && place < setting.bitSize;
        require(isSet(report, bit) == (isPart ? (setting.value >> place & 1U) != 0 : isSet(before, bit)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto descriptor = parsedReportDescriptor(std::as_bytes(std::span(data, size)));
    if (!descriptor) {
        return 0;
    }
    std::ranges::for_each(descriptor->fields,
                          [&](const HidField &field) { checkField(field, descriptor->hasReportIds); });
    for (const auto *const property :
         {"SensorPropertyReportingState", "SensorPropertyPowerState", "ReportInterval"}) {
        for (const std::int32_t value : {0, 1, 1000, -1, INT32_MAX, INT32_MIN}) {
            if (const auto setting = hidSetting(*descriptor, property, value)) {
                checkSetting(*setting);
            }
        }
    }
    return 0;
}

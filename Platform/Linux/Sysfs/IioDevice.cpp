#include "Platform/Linux/Sysfs/IioDevice.h"

#include "Platform/Linux/Sysfs/SysfsFile.h"

#include <cmath>
#include <string>

namespace platform {

namespace {

using std::filesystem::path;

path attribute(const path &device, std::string_view name, std::string_view suffix)
{
    return device / std::string(name).append(suffix);
}

// Of the channel or of its kind; `missing` where neither has it.
std::optional<double> sharedNumber(const path &device, std::string_view channel, std::string_view kind,
                                   std::string_view suffix, double missing)
{
    for (const auto name : {channel, kind}) {
        if (const auto file = attribute(device, name, suffix); isThere(file)) {
            return numberInFile(file);
        }
    }
    return missing;
}

std::optional<double> finite(double value)
{
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::vector<path> iioDevices(const path &root)
{
    return numberedPaths(root / "sys/bus/iio/devices", "iio:device");
}

path iioFile(const path &device, std::string_view channel)
{
    for (const auto *const suffix : {"_input", "_raw"}) {
        if (auto file = attribute(device, channel, suffix); isThere(file)) {
            return file;
        }
    }
    return {};
}

std::optional<double> iioValue(const path &device, std::string_view channel, std::string_view kind)
{
    if (const auto file = attribute(device, channel, "_input"); isThere(file)) {
        return numberInFile(file);
    }
    const auto raw = numberInFile(attribute(device, channel, "_raw"));
    const auto offset = sharedNumber(device, channel, kind, "_offset", 0);
    const auto scale = sharedNumber(device, channel, kind, "_scale", 1);
    return raw && offset && scale ? finite((*raw + *offset) * *scale) : std::nullopt;
}

} // namespace platform

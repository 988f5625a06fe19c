#include "Platform/Linux/Sysfs/IioDevice.h"

#include "Platform/Linux/Sysfs/SysfsFile.h"

#include <cmath>
#include <string>

namespace platform {

namespace {

using std::filesystem::path;

// A text, since most attributes that are looked for are not there, and a path costs more than that look.
std::string attribute(const path &device, std::string_view name, std::string_view suffix)
{
    std::string file;
    file.reserve(device.native().size() + 1 + name.size() + suffix.size());
    return file.append(device.native()).append(1, '/').append(name).append(suffix);
}

// Of the channel or of its kind; `missing` where neither has it.
std::optional<double> sharedNumber(const path &device, std::string_view channel, std::string_view kind,
                                   std::string_view suffix, double missing)
{
    for (const auto name : {channel, kind}) {
        if (const auto file = attribute(device, name, suffix); isThere(file.c_str())) {
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
        if (auto file = attribute(device, channel, suffix); isThere(file.c_str())) {
            return file;
        }
    }
    return {};
}

std::optional<double> iioValue(const path &device, std::string_view channel, std::string_view kind)
{
    if (const auto file = attribute(device, channel, "_input"); isThere(file.c_str())) {
        return numberInFile(file);
    }
    const auto raw = numberInFile(attribute(device, channel, "_raw"));
    const auto offset = sharedNumber(device, channel, kind, "_offset", 0);
    const auto scale = sharedNumber(device, channel, kind, "_scale", 1);
    return raw && offset && scale ? finite((*raw + *offset) * *scale) : std::nullopt;
}

} // namespace platform

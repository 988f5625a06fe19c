// Devices of the kernel's subsystem for sensors (Industrial I/O).
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {

// The folders of the devices that there are now, by their number. `root` is that of the file system. Any
// thread.
[[nodiscard]] std::vector<std::filesystem::path> iioDevices(const std::filesystem::path &root);

// The file with the value of a channel, such as "in_accel_x": its "_input", which the kernel has computed, or
// else its "_raw". An empty path where the device has no such channel.
[[nodiscard]] std::filesystem::path iioFile(const std::filesystem::path &device, std::string_view channel);

// What the channel measures now, in the unit that the kernel's documentation gives for its kind
// (Documentation/ABI/testing/sysfs-bus-iio): its "_input", else its "_raw" plus its "_offset" times its
// "_scale"; these two may be of the channel or of all of the kind, such as "in_accel", and be missing (0, 1).
// Nothing where a file cannot be read or says no number, or what comes out is not finite.
[[nodiscard]] std::optional<double> iioValue(const std::filesystem::path &device, std::string_view channel,
                                             std::string_view kind);

} // namespace platform

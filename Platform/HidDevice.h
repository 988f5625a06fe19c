// A device that sends reports of bytes: motion, keys, whatever its kind is.
#pragma once

#include "Platform/RegistryValue.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace platform {

// What a device sent. `bytes` lie in the buffer that was registered, until the callback returns; where the
// device numbers its reports, the first of them is `reportId`, else that is 0.
struct InputReport
{
    RegistryResult result = registrySuccess; // without success there are no bytes
    std::uint32_t reportId = 0;
    std::span<const std::byte> bytes = {};
};

// Main thread. Callbacks come on the main thread, from the run loop, while the device is open, has a callback
// and is scheduled; how many one turn of the loop brings is bounded, so that no device keeps it busy. A
// device that is unplugged says so once, by a result other than success, and is silent then. A callback may
// close the device, but neither destroy it nor put another callback into its own place.
class HidDevice
{
public:
    using InputReportCallback = std::function<void(const InputReport &)>;

    HidDevice() = default;
    HidDevice(const HidDevice &) = delete;
    HidDevice &operator=(const HidDevice &) = delete;
    // Ends the reports, and closes the device where it is open.
    virtual ~HidDevice() = default;

    [[nodiscard]] virtual RegistryResult open() = 0;

    // Reports are written into `buffer`, which has to live as long as the callback is registered; a longer
    // report is cut off there. An empty callback takes the one before away.
    virtual void registerInputReportCallback(std::span<std::byte> buffer, InputReportCallback callback) = 0;

    virtual void scheduleWithMainLoop() = 0;
    virtual void unscheduleFromMainLoop() = 0;

    virtual void close() = 0;
};

} // namespace platform

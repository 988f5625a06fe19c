// The accelerometer that sends reports by itself. Private to SharedCore: applications use MotionSensor.
#pragma once

#include "Platform/HardwareRegistry.h"
#include "SharedCore/SensorManager/LittleEndian.h"
#include "SharedCore/SensorManager/MotionSensor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace sharedcore {

// Wakes the sensor, takes its reports in and keeps one in eight. Main thread, but for readLockedCopy(). It
// works with the registry of hardware that is current.
class AppleSPUHIDAccelerometerBackend
{
public:
    static constexpr std::int32_t vendorUsagePage = 0xFF00;
    static constexpr std::int32_t usageAccelerometer = 3;
    static constexpr std::size_t imuReportLength = 22; // bytes; reports of other lengths are not decoded
    static constexpr std::size_t imuPayloadOffset = 6; // of x; y and z follow it
    static constexpr double rawToG = 65536.0;          // raw counts per g
    static constexpr std::size_t reportBufferSize = 4096;
    static constexpr std::int64_t decimationStride = 8; // one report in so many is kept

    using Report = std::span<const std::byte, imuReportLength>;

    AppleSPUHIDAccelerometerBackend() = default;
    AppleSPUHIDAccelerometerBackend(const AppleSPUHIDAccelerometerBackend &) = delete;
    AppleSPUHIDAccelerometerBackend &operator=(const AppleSPUHIDAccelerometerBackend &) = delete;
    // Lets go of the device as it is, without close().
    ~AppleSPUHIDAccelerometerBackend() = default;

    // Takes the first accelerometer that can be opened. False where there is none. Reports come from the main
    // loop from then on.
    [[nodiscard]] bool open();
    // Ends the reports. The newest sample stays. May be called at any time.
    void close();

    // The newest sample that was kept, all zero before the first. Any thread.
    [[nodiscard]] MotionSensor::Data readLockedCopy() const;

    // Asks the drivers of all such sensors to report, in full power, every 1000 microseconds. What a driver
    // does not take is left alone.
    static void wakeSPUDrivers();
    static void ioRegistrySetSInt32(platform::RegistryService entry, std::string_view key,
                                    std::int32_t value);
    // The usage page and the usage that a device is for in the first place; nothing where it does not tell.
    [[nodiscard]] static std::optional<std::pair<std::int32_t, std::int32_t>>
    primaryUsagePair(platform::RegistryService service);

    // What the device's callback does: takes a report, if it is one, to the backend, if there is one.
    static void inputReport(AppleSPUHIDAccelerometerBackend *context, const platform::InputReport &report);
    // Counts the report, and keeps what it says where it is its turn. A count beyond 64 bits is a fatal
    // error.
    void handleReport(Report report);

    // From byte 6 on x, y and z, each 32 bits, signed, the lowest byte first; the other bytes say nothing.
    [[nodiscard]] static constexpr MotionSensor::Data decoded(Report report)
    {
        constexpr std::size_t axisSize = sizeof(std::int32_t);
        const auto axis = [report](std::size_t number) {
            return littleEndianAt<std::int32_t>(report, imuPayloadOffset + number * axisSize) / rawToG;
        };
        return {axis(0), axis(1), axis(2)};
    }

private:
    mutable std::mutex lock_;
    MotionSensor::Data latest_; // guarded by the lock
    std::vector<std::byte> reportBuffer_;
    std::unique_ptr<platform::HidDevice> hidDevice_; // goes before the buffer that it writes into
    std::int64_t decimationTick_ = 0;
};

} // namespace sharedcore

// The machine's acceleration, from whichever accelerometer it has.
#pragma once

#include "Platform/RegistryValue.h"

#include <memory>
#include <string>

namespace sharedcore {

class AppleSPUHIDAccelerometerBackend;

// Opened, closed and destroyed on the main thread, but for openDriver(); read from any thread while it stays
// open. It works with the registry of hardware that is current, and holds nothing of it while it is closed.
class MotionSensor
{
public:
    // Acceleration in units of g, on the three axes of the sensor. All zero stands for no reading.
    struct Data
    {
        double x = 0;
        double y = 0;
        double z = 0;

        bool operator==(const Data &) const = default;
    };

    MotionSensor();
    MotionSensor(const MotionSensor &) = delete;
    MotionSensor &operator=(const MotionSensor &) = delete;
    // Closes the sensor.
    ~MotionSensor();

    // Opens the first accelerometer that there is, anew where one is open: those that are asked through their
    // driver first, then the one that sends reports. Says with a line on the standard output which it is, or
    // that there is none; false then.
    bool open();

    // The two halves of open(), for who must not wait on the main thread until a driver has answered. Each
    // closes what is open.
    bool openDriver(); // any thread, while nobody else uses the sensor
    bool openReports();

    // The acceleration now; of an accelerometer that sends reports, that of the newest report which was kept.
    // All zero while the sensor is closed, has not reported yet or cannot be read.
    [[nodiscard]] Data read() const;

    // May be called at any time.
    void close();

private:
    [[nodiscard]] bool openUserClient(const char *serviceName);
    [[nodiscard]] bool openBackend();

    platform::RegistryConnection connect_ = 0;
    bool isOpen_ = false;
    std::string sensorType_;
    std::unique_ptr<AppleSPUHIDAccelerometerBackend> spuBackend_;
};

} // namespace sharedcore

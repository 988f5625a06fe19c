// The machine's sensors for as long as they are wanted.
#pragma once

#include "SharedCore/SensorManager/AmbientLightSensor.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"

#include <optional>

namespace gallery {

struct SensorReading
{
    bool hasLight = true;
    bool isLidMeasured = false;
    double light = 0; // from 0 to 1
    double lid = 0;   // degrees
    std::optional<sharedcore::MotionSensor::Data> motion;
};

// Made and destroyed on the main thread.
class OpenSensors
{
public:
    // Waits for the sensors. Any thread, one at a time.
    [[nodiscard]] SensorReading read();

    // To be called after a reading, and while there is none, on the main thread: opens the accelerometer that
    // sends reports, where no other has answered.
    void openReports();
    // Whether there is an accelerometer. Main thread, while there is no reading.
    [[nodiscard]] bool hasMotion() const { return hasMotion_; }

private:
    void followLight();
    void readLid(SensorReading &reading);
    [[nodiscard]] std::optional<sharedcore::MotionSensor::Data> readMotion();

    sharedcore::AmbientLightSensor lightSensor_;
    sharedcore::LidAngleSensor lidSensor_;
    sharedcore::MotionSensor motionSensor_;
    bool hasLight_ = false;
    bool hasMotion_ = false;
    bool isDriverAskedFor_ = false;
    bool areReportsAskedFor_ = false;
};

} // namespace gallery

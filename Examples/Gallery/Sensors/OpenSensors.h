// The machine's sensors for as long as they are wanted.
#pragma once

#include "SharedCore/SensorManager/AmbientLightSensor.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"

namespace gallery {

struct SensorReading
{
    bool hasLight = true;
    bool hasMotion = true;
    bool isLidMeasured = false;
    double light = 0; // from 0 to 1
    double lid = 0;   // degrees
    sharedcore::MotionSensor::Data motion;
};

// Made and destroyed on the main thread; read on any, one at a time.
class OpenSensors
{
public:
    OpenSensors();

    // Waits for the sensors.
    [[nodiscard]] SensorReading read();

private:
    void readLid(SensorReading &reading);

    sharedcore::AmbientLightSensor lightSensor_;
    sharedcore::LidAngleSensor lidSensor_;
    sharedcore::MotionSensor motionSensor_;
    const bool hasMotion_;
    bool isLightAskedFor_ = false;
    bool hasLight_ = false;
};

} // namespace gallery

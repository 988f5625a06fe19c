#include "Examples/Gallery/Sensors/OpenSensors.h"

#include <utility>

namespace gallery {

namespace {

constexpr double assumedAngle = 90; // what an estimate without a light sensor is

} // namespace

OpenSensors::OpenSensors()
    : hasMotion_(motionSensor_.open())
{}

SensorReading OpenSensors::read()
{
    if (!std::exchange(isLightAskedFor_, true)) {
        hasLight_ = lightSensor_.open();
    }
    SensorReading reading{.hasLight = hasLight_,
                          .hasMotion = hasMotion_,
                          .light = lightSensor_.readNormalized(),
                          .motion = motionSensor_.read()};
    readLid(reading);
    return reading;
}

// An estimate opens the light sensor, and says on the standard output where there is none: not at each
// reading.
void OpenSensors::readLid(SensorReading &reading)
{
    const auto measured = sharedcore::LidAngleSensor::readDirect();
    reading.isLidMeasured = measured.has_value();
    if (measured) {
        reading.lid = *measured;
    } else {
        reading.lid = hasLight_ ? lidSensor_.readEstimated() : assumedAngle;
    }
}

} // namespace gallery

#include "Examples/Gallery/Sensors/OpenSensors.h"

#include "Platform/HardwareRegistry.h"

#include <utility>

namespace gallery {

namespace {

constexpr double assumedAngle = 90; // what an estimate without a light sensor is

} // namespace

SensorReading OpenSensors::read()
{
    followLight();
    SensorReading reading{
        .hasLight = hasLight_, .light = lightSensor_.readNormalized(), .motion = readMotion()};
    readLid(reading);
    return reading;
}

void OpenSensors::openReports()
{
    if (!hasMotion_ && !std::exchange(areReportsAskedFor_, true)) {
        hasMotion_ = motionSensor_.openReports();
    }
}

// A light sensor may be at a plug. Who opens one that is not there says so on the standard output: it is
// looked for first, as this is at each reading.
void OpenSensors::followLight()
{
    auto &registry = platform::HardwareRegistry::current();
    const platform::ServiceHolder controller(registry, registry.firstService("AppleLMUController"));
    if (controller.isEmpty()) {
        lightSensor_.close();
        hasLight_ = false;
    } else if (!hasLight_) {
        hasLight_ = lightSensor_.open();
    }
}

std::optional<sharedcore::MotionSensor::Data> OpenSensors::readMotion()
{
    if (!std::exchange(isDriverAskedFor_, true)) {
        hasMotion_ = motionSensor_.openDriver();
    }
    const auto motion = motionSensor_.read();
    return motion == sharedcore::MotionSensor::Data() ? std::nullopt : std::optional(motion);
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

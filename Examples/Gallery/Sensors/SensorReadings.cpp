#include "Examples/Gallery/Sensors/SensorReadings.h"

#include "Platform/Platform.h"

namespace gallery {

namespace {

constexpr platform::Seconds interval(0.1);
constexpr double assumedAngle = 90; // what an estimate without a light sensor is

} // namespace

SensorReadings::~SensorReadings()
{
    stop();
}

void SensorReadings::setRunning(bool isRunning)
{
    if (isRunning == this->isRunning()) {
        return;
    }
    if (isRunning) {
        start();
    } else {
        stop();
    }
    Q_EMIT runningChanged();
}

void SensorReadings::start()
{
    hasLight_ = lightSensor_.open();
    hasMotion_ = motionSensor_.open();
    clock_ = platform::Platform::current().scheduler().repeat(interval, [this] { sample(); });
    sample();
}

void SensorReadings::stop()
{
    if (clock_) {
        clock_->invalidate();
        clock_.reset();
    }
    lightSensor_.close();
    motionSensor_.close();
}

void SensorReadings::sample()
{
    if (hasLight_) {
        lights_.append({lightSensor_.readNormalized()});
    }
    lids_.append({lidAngle()});
    if (hasMotion_) {
        const auto [x, y, z] = motionSensor_.read();
        motions_.append({x, y, z});
    }
    Q_EMIT sampled();
}

// An estimate opens the light sensor, and says on the standard output where there is none: not at each
// sample.
double SensorReadings::lidAngle()
{
    const auto measured = sharedcore::LidAngleSensor::readDirect();
    isLidMeasured_ = measured.has_value();
    if (measured) {
        return *measured;
    }
    return hasLight_ ? lidSensor_.readEstimated() : assumedAngle;
}

QVector3D SensorReadings::motion() const
{
    return {static_cast<float>(motions_.value(0)), static_cast<float>(motions_.value(1)),
            static_cast<float>(motions_.value(2))};
}

} // namespace gallery

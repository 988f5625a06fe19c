#include "Examples/Gallery/Sensors/SensorReadings.h"

#include "Platform/Platform.h"

namespace gallery {

namespace {

constexpr platform::Seconds interval(0.1);
constexpr qsizetype keptSamples = 300; // half a minute
constexpr double assumedAngle = 90;    // what an estimate without a light sensor is

void append(QList<QList<double>> &history, const QList<double> &sample)
{
    if (history.size() == keptSamples) {
        history.removeFirst();
    }
    history.append(sample);
}

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
        append(lights_, {lightSensor_.readNormalized()});
    }
    append(lids_, {lidAngle()});
    if (hasMotion_) {
        const auto [x, y, z] = motionSensor_.read();
        append(motions_, {x, y, z});
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

QList<double> SensorReadings::newest(const History &history)
{
    return history.isEmpty() ? QList<double>() : history.last();
}

} // namespace gallery

#include "Examples/Gallery/Sensors/SensorReadings.h"

#include "Platform/Platform.h"

#include <chrono>
#include <utility>

namespace gallery {

namespace {

constexpr platform::Seconds interval(0.1);

} // namespace

SensorReadings::SensorReadings(QObject *parent)
    : QObject(parent)
{
    worker_.setMaxThreadCount(1);
}

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
    sensors_ = std::make_shared<OpenSensors>();
    clock_ = platform::Platform::current().scheduler().repeat(interval, [this] { sample(); });
    sample();
}

void SensorReadings::stop()
{
    if (clock_) {
        clock_->invalidate();
        clock_.reset();
    }
    sensors_.reset();
}

// The sensors are let go of on this thread, also where it stops meanwhile.
void SensorReadings::sample()
{
    if (std::exchange(isReading_, true)) {
        return;
    }
    worker_.start([this, sensors = sensors_]() mutable {
        const auto reading = sensors->read();
        QMetaObject::invokeMethod(this, [this, reading, sensors = std::move(sensors)] {
            isReading_ = false;
            if (sensors == sensors_) {
                sensors->openReports();
                take(reading);
            }
        });
    });
}

void SensorReadings::take(const SensorReading &reading)
{
    const auto now = std::chrono::steady_clock::now();
    if (reading.hasLight) {
        lights_.append({now, {reading.light}});
    }
    lids_.append({now, {reading.lid}});
    if (reading.motion) {
        motions_.append({now, {reading.motion->x, reading.motion->y, reading.motion->z}});
    }
    hasMotion_ = sensors_->hasMotion();
    last_ = reading;
    Q_EMIT sampled();
}

QVector3D SensorReadings::motion() const
{
    return {static_cast<float>(motions_.value(0)), static_cast<float>(motions_.value(1)),
            static_cast<float>(motions_.value(2))};
}

} // namespace gallery

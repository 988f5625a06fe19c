// What the machine's sensors say, ten times a second.
#pragma once

#include "Examples/Gallery/Sensors/SensorHistory.h"
#include "Platform/Scheduler.h"
#include "SharedCore/SensorManager/AmbientLightSensor.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"

#include <QObject>
#include <QVector3D>
#include <QtQmlIntegration>

#include <memory>

namespace gallery {

// The sensors are open only while it is running, and nothing is read otherwise. Main thread.
class SensorReadings : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isRunning READ isRunning WRITE setRunning NOTIFY runningChanged)

    // Whether the machine has a sensor that can be read.
    Q_PROPERTY(bool hasLight MEMBER hasLight_ NOTIFY runningChanged)
    Q_PROPERTY(bool hasMotion MEMBER hasMotion_ NOTIFY runningChanged)
    Q_PROPERTY(bool isLidMeasured MEMBER isLidMeasured_ NOTIFY sampled) // and not estimated

    Q_PROPERTY(double light READ light NOTIFY sampled)      // from 0 to 1
    Q_PROPERTY(double lid READ lid NOTIFY sampled)          // degrees
    Q_PROPERTY(QVector3D motion READ motion NOTIFY sampled) // in g

    Q_PROPERTY(gallery::SensorHistory *lightHistory READ lightHistory CONSTANT)
    Q_PROPERTY(gallery::SensorHistory *lidHistory READ lidHistory CONSTANT)
    Q_PROPERTY(gallery::SensorHistory *motionHistory READ motionHistory CONSTANT)

public:
    using QObject::QObject;
    ~SensorReadings() override;

    [[nodiscard]] bool isRunning() const { return clock_ != nullptr; }
    void setRunning(bool isRunning);

    [[nodiscard]] double light() const { return lights_.value(0); }
    [[nodiscard]] double lid() const { return lids_.value(0); }
    [[nodiscard]] QVector3D motion() const;
    [[nodiscard]] SensorHistory *lightHistory() { return &lights_; }
    [[nodiscard]] SensorHistory *lidHistory() { return &lids_; }
    [[nodiscard]] SensorHistory *motionHistory() { return &motions_; }

Q_SIGNALS:
    void runningChanged();
    void sampled();

private:
    void start();
    void stop();
    void sample();
    [[nodiscard]] double lidAngle();

    sharedcore::AmbientLightSensor lightSensor_;
    sharedcore::LidAngleSensor lidSensor_;
    sharedcore::MotionSensor motionSensor_;
    bool hasLight_ = false;
    bool hasMotion_ = false;
    bool isLidMeasured_ = false;
    SensorHistory lights_;
    SensorHistory lids_;
    SensorHistory motions_;
    std::shared_ptr<platform::RepeatingTimer> clock_;
};

} // namespace gallery

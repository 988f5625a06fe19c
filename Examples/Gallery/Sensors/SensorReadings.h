// What the machine's sensors say, ten times a second.
#pragma once

#include "Platform/Scheduler.h"
#include "SharedCore/SensorManager/AmbientLightSensor.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"

#include <QList>
#include <QObject>
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

    Q_PROPERTY(double light READ light NOTIFY sampled)          // from 0 to 1
    Q_PROPERTY(double lid READ lid NOTIFY sampled)              // degrees
    Q_PROPERTY(QList<double> motion READ motion NOTIFY sampled) // x, y and z in g

    // The values of the last 30 seconds, the newest last.
    Q_PROPERTY(QList<QList<double>> lightHistory MEMBER lights_ NOTIFY sampled)
    Q_PROPERTY(QList<QList<double>> lidHistory MEMBER lids_ NOTIFY sampled)
    Q_PROPERTY(QList<QList<double>> motionHistory MEMBER motions_ NOTIFY sampled)

public:
    using QObject::QObject;
    ~SensorReadings() override;

    [[nodiscard]] bool isRunning() const { return clock_ != nullptr; }
    void setRunning(bool isRunning);

    [[nodiscard]] double light() const { return newest(lights_).value(0); }
    [[nodiscard]] double lid() const { return newest(lids_).value(0); }
    [[nodiscard]] QList<double> motion() const { return newest(motions_); }

Q_SIGNALS:
    void runningChanged();
    void sampled();

private:
    using History = QList<QList<double>>;

    [[nodiscard]] static QList<double> newest(const History &history);
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
    History lights_;
    History lids_;
    History motions_;
    std::shared_ptr<platform::RepeatingTimer> clock_;
};

} // namespace gallery

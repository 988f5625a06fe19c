// What the machine's sensors say, ten times a second.
#pragma once

#include "Examples/Gallery/Sensors/OpenSensors.h"
#include "Examples/Gallery/Sensors/SensorHistory.h"
#include "Platform/Scheduler.h"

#include <QObject>
#include <QThreadPool>
#include <QVector3D>
#include <QtQmlIntegration>

#include <memory>

namespace gallery {

// The sensors are open only while it is running, and nothing is read otherwise. They are read on a thread
// beside the main one, since a sensor that sleeps or hangs keeps its reader waiting; meanwhile there are no
// further samples. So does whoever destroys this wait for a reading that is under way. Main thread.
class SensorReadings : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isRunning READ isRunning WRITE setRunning NOTIFY runningChanged)

    // Whether the machine has a sensor that can be read; taken for true until the first sample.
    Q_PROPERTY(bool hasLight READ hasLight NOTIFY sampled)
    Q_PROPERTY(bool hasMotion READ hasMotion NOTIFY sampled)
    Q_PROPERTY(bool isLidMeasured READ isLidMeasured NOTIFY sampled) // and not estimated
    // Whether the accelerometer gave a reading with the last sample.
    Q_PROPERTY(bool isMotionRead READ isMotionRead NOTIFY sampled)

    Q_PROPERTY(double light READ light NOTIFY sampled)      // from 0 to 1
    Q_PROPERTY(double lid READ lid NOTIFY sampled)          // degrees
    Q_PROPERTY(QVector3D motion READ motion NOTIFY sampled) // in g

    Q_PROPERTY(gallery::SensorHistory *lightHistory READ lightHistory CONSTANT)
    Q_PROPERTY(gallery::SensorHistory *lidHistory READ lidHistory CONSTANT)
    Q_PROPERTY(gallery::SensorHistory *motionHistory READ motionHistory CONSTANT)

public:
    explicit SensorReadings(QObject *parent = nullptr);
    ~SensorReadings() override;

    [[nodiscard]] bool isRunning() const { return clock_ != nullptr; }
    void setRunning(bool isRunning);

    [[nodiscard]] bool hasLight() const { return last_.hasLight; }
    [[nodiscard]] bool hasMotion() const { return hasMotion_; }
    [[nodiscard]] bool isLidMeasured() const { return last_.isLidMeasured; }
    [[nodiscard]] bool isMotionRead() const { return last_.motion.has_value(); }
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
    void take(const SensorReading &reading);

    std::shared_ptr<OpenSensors> sensors_; // while it is running
    std::shared_ptr<platform::RepeatingTimer> clock_;
    bool isReading_ = false; // the worker is
    bool hasMotion_ = true;
    SensorReading last_;
    SensorHistory lights_;
    SensorHistory lids_;
    SensorHistory motions_;
    QThreadPool worker_; // goes first, and waits for its reading
};

} // namespace gallery

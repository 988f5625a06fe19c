// The last samples of a sensor.
#pragma once

#include <QList>
#include <QObject>
#include <QtQmlIntegration>

#include <chrono>

namespace gallery {

// Half a minute of them, before the newest. Main thread.
class SensorHistory : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The readings have them.")

public:
    using Time = std::chrono::steady_clock::time_point;
    static constexpr std::chrono::seconds length{30};

    struct Sample
    {
        Time time;
        QList<double> values; // one for each channel
    };
    using QObject::QObject;

    // The newest last.
    [[nodiscard]] const QList<Sample> &samples() const { return samples_; }
    // Of the newest; 0 where there is none.
    [[nodiscard]] double value(qsizetype channel) const
    {
        return samples_.isEmpty() ? 0 : samples_.last().values.value(channel);
    }
    // REQUIRES: it is not older than the newest.
    void append(const Sample &sample)
    {
        while (!samples_.isEmpty() && sample.time - samples_.first().time > length) {
            samples_.removeFirst();
        }
        samples_.append(sample);
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    QList<Sample> samples_;
};

} // namespace gallery

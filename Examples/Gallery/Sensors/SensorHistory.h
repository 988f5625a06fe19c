// The last samples of a sensor.
#pragma once

#include <QList>
#include <QObject>
#include <QtQmlIntegration>

namespace gallery {

// Half a minute of them, at ten a second. Main thread.
class SensorHistory : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The readings have them.")

public:
    static constexpr qsizetype capacity = 300;

    using Sample = QList<double>; // a value for each channel
    using QObject::QObject;

    // The newest last.
    [[nodiscard]] const QList<Sample> &samples() const { return samples_; }
    // Of the newest; 0 where there is none.
    [[nodiscard]] double value(qsizetype channel) const
    {
        return samples_.isEmpty() ? 0 : samples_.last().value(channel);
    }
    void append(const Sample &sample)
    {
        if (samples_.size() == capacity) {
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

// How many frames the items in a panel have told of.
#pragma once

#include <QDBusConnection>
#include <QObject>

namespace benchmarks {

// Counts from its making on, whenever Qt's events are handled.
class FrameCount final : public QObject
{
    Q_OBJECT

public:
    // A connection of its own to the panel's bus.
    explicit FrameCount(const QDBusConnection &bus);

    [[nodiscard]] int frames() const { return frames_; }

private Q_SLOTS:
    void countFrame() { ++frames_; }

private:
    QDBusConnection bus_;
    int frames_ = 0;
};

} // namespace benchmarks

// The model of the application: whether it is active, what it does, how often, and what it did.
#pragma once

#include "Platform/Platform.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringView>
#include <QtQmlIntegration>

#include <array>
#include <memory>
#include <optional>

namespace stirra {

// One line of the action log.
struct ActionLogEntry
{
    QString timeText; // local wall-clock time: hour, minute, second in the user's locale
    QString message;

    bool operator==(const ActionLogEntry &) const = default;
};

// Once per interval, while active, the engine posts a harmless input event that the system takes for user
// activity. It reports no errors: an event that cannot be posted is skipped, and the counters and texts go
// on.
//
// Main thread. Uses the platform that is current when it is made, which has to outlive it. Every published
// property is a plain store: observers get objectWillChange() before the change and the property's own signal
// after it. The interval is read when the engine starts; the mode is read at every tick.
class StirraEngine : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isActive READ isActive NOTIFY isActiveChanged)
    Q_PROPERTY(Mode mode READ mode WRITE setMode NOTIFY modeChanged)
    // Seconds between two actions.
    Q_PROPERTY(
        double intervalSeconds READ intervalSeconds WRITE setIntervalSeconds NOTIFY intervalSecondsChanged)
    // Actions since the last start. A count above the signed 64-bit range is a fatal error.
    Q_PROPERTY(qint64 totalJiggles READ totalJiggles WRITE setTotalJiggles NOTIFY totalJigglesChanged)
    // Ticks of the one-second timer since the last start.
    Q_PROPERTY(qint64 uptimeSeconds READ uptimeSeconds WRITE setUptimeSeconds NOTIFY uptimeSecondsChanged)
    Q_PROPERTY(QString lastAction READ lastAction NOTIFY lastActionChanged)

public:
    enum class Mode { mouseJiggle, keyPress, both, scroll };
    Q_ENUM(Mode)

    // In the order in which they are shown.
    static constexpr std::array allModes{Mode::mouseJiggle, Mode::keyPress, Mode::both, Mode::scroll};
    // The mode's text, which is also its name on screen.
    [[nodiscard]] static QString rawValue(Mode mode);
    // The mode whose text is exactly `rawValue`; nothing for any other text.
    [[nodiscard]] static std::optional<Mode> modeFromRawValue(QStringView rawValue);

    static constexpr qsizetype mostLogEntries = 50;

    explicit StirraEngine(QObject *parent = nullptr);

    [[nodiscard]] bool isActive() const { return isActive_; }
    [[nodiscard]] Mode mode() const { return mode_; }
    void setMode(Mode mode);
    [[nodiscard]] double intervalSeconds() const { return intervalSeconds_; }
    void setIntervalSeconds(double seconds);
    [[nodiscard]] qint64 totalJiggles() const { return totalJiggles_; }
    [[nodiscard]] qint64 uptimeSeconds() const { return uptimeSeconds_; }
    [[nodiscard]] const QString &lastAction() const { return lastAction_; }
    // The newest entry first, at most mostLogEntries.
    [[nodiscard]] const QList<ActionLogEntry> &actionLog() const { return actionLog_; }

    Q_INVOKABLE void toggle();
    // Makes the engine active. REQUIRES: it is inactive (toggle() sees to that).
    void start();
    void stop();

    // "1h 02m 03s", "5m 07s" or "45s".
    Q_INVOKABLE static QString formatDuration(qint64 seconds);

Q_SIGNALS:
    // Before each change of a published property.
    void objectWillChange();

    void isActiveChanged();
    void modeChanged();
    void intervalSecondsChanged();
    void totalJigglesChanged();
    void uptimeSecondsChanged();
    void lastActionChanged();
    void actionLogChanged();

private:
    template <class Change> void publish(Change change, void (StirraEngine::*changed)());
    void setActive(bool isActive);
    void setTotalJiggles(qint64 count);
    void setUptimeSeconds(qint64 seconds);
    void setLastAction(const QString &text);

    std::shared_ptr<platform::RepeatingTimer> repeatWeakly(platform::Seconds interval,
                                                           void (StirraEngine::*tick)());
    void countUptime();
    void performStirraAction();
    void addLog(const QString &message);

    [[nodiscard]] bool isEvenTurn() const { return totalJiggles_ % 2 == 0; }
    void jiggleMouse();
    void pressKey();
    void scrollPulse();

    platform::Platform &platform_;

    bool isActive_ = false;
    Mode mode_ = Mode::mouseJiggle;
    double intervalSeconds_ = 30.0;
    qint64 totalJiggles_ = 0;
    qint64 uptimeSeconds_ = 0;
    QString lastAction_;
    QList<ActionLogEntry> actionLog_;

    std::shared_ptr<platform::RepeatingTimer> timer_;
    std::shared_ptr<platform::RepeatingTimer> uptimeTimer_;
};

} // namespace stirra

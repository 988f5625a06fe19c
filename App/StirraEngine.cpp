#include "App/StirraEngine.h"

#include "Foundation/CheckedArithmetic.h"
#include "Foundation/TimeText.h"

#include <QPointer>

#include <algorithm>

namespace stirra {

namespace {

constexpr platform::Seconds uptimeInterval{1.0};
constexpr qint64 secondsPerMinute = 60;
constexpr qint64 secondsPerHour = 3600;

void invalidate(std::shared_ptr<platform::RepeatingTimer> &timer)
{
    if (timer) {
        timer->invalidate();
        timer.reset();
    }
}

} // namespace

QString StirraEngine::rawValue(Mode mode)
{
    switch (mode) {
    case Mode::mouseJiggle:
        return QStringLiteral("Mouse Jiggle");
    case Mode::keyPress:
        return QStringLiteral("Key Press");
    case Mode::both:
        return QStringLiteral("Mouse + Key");
    case Mode::scroll:
        return QStringLiteral("Scroll Pulse");
    }
    return {};
}

std::optional<StirraEngine::Mode> StirraEngine::modeFromRawValue(QStringView text)
{
    const auto found = std::ranges::find_if(allModes, [text](Mode mode) { return rawValue(mode) == text; });
    return found == allModes.end() ? std::nullopt : std::optional(*found);
}

StirraEngine::StirraEngine(QObject *parent)
    : QObject(parent)
    , platform_(platform::Platform::current())
    , lastAction_(QStringLiteral("None yet"))
{}

template <class Change> void StirraEngine::publish(Change change, void (StirraEngine::*changed)())
{
    Q_EMIT objectWillChange();
    change();
    Q_EMIT(this->*changed)();
}

void StirraEngine::setActive(bool isActive)
{
    publish([&] { isActive_ = isActive; }, &StirraEngine::isActiveChanged);
}

void StirraEngine::setMode(Mode mode)
{
    publish([&] { mode_ = mode; }, &StirraEngine::modeChanged);
}

void StirraEngine::setIntervalSeconds(double seconds)
{
    publish([&] { intervalSeconds_ = seconds; }, &StirraEngine::intervalSecondsChanged);
}

void StirraEngine::setTotalJiggles(qint64 count)
{
    publish([&] { totalJiggles_ = count; }, &StirraEngine::totalJigglesChanged);
}

void StirraEngine::setUptimeSeconds(qint64 seconds)
{
    publish([&] { uptimeSeconds_ = seconds; }, &StirraEngine::uptimeSecondsChanged);
}

void StirraEngine::setLastAction(const QString &text)
{
    publish([&] { lastAction_ = text; }, &StirraEngine::lastActionChanged);
}

void StirraEngine::toggle()
{
    if (isActive_) {
        stop();
    } else {
        start();
    }
}

void StirraEngine::start()
{
    setActive(true);
    setTotalJiggles(0);
    setUptimeSeconds(0);
    setLastAction(QStringLiteral("Starting..."));
    addLog(QStringLiteral("Stirra activated"));
    uptimeTimer_ = repeatWeakly(uptimeInterval, &StirraEngine::countUptime);
    timer_ = repeatWeakly(platform::Seconds(intervalSeconds_), &StirraEngine::performStirraAction);
    platform_.inputPoster().prepare();
}

void StirraEngine::stop()
{
    setActive(false);
    invalidate(timer_);
    invalidate(uptimeTimer_);
    setLastAction(QStringLiteral("Stopped"));
    addLog(QStringLiteral("Stirra deactivated (ran %1)").arg(formatDuration(uptimeSeconds_)));
}

// The run loop keeps its timers; one that outlives the engine finds it gone and does nothing.
std::shared_ptr<platform::RepeatingTimer> StirraEngine::repeatWeakly(platform::Seconds interval,
                                                                     void (StirraEngine::*tick)())
{
    return platform_.scheduler().repeat(interval, [engine = QPointer(this), tick] {
        if (engine) {
            (engine->*tick)();
        }
    });
}

void StirraEngine::countUptime()
{
    setUptimeSeconds(foundation::checkedSum(uptimeSeconds_, 1));
}

void StirraEngine::performStirraAction()
{
    switch (mode_) {
    case Mode::mouseJiggle:
        jiggleMouse();
        break;
    case Mode::keyPress:
        pressKey();
        break;
    case Mode::both:
        isEvenTurn() ? jiggleMouse() : pressKey();
        break;
    case Mode::scroll:
        scrollPulse();
        break;
    }
    setTotalJiggles(foundation::checkedSum(totalJiggles_, 1));
}

void StirraEngine::addLog(const QString &message)
{
    const auto time = foundation::localTimeText(platform_.scheduler().now());
    publish([&] { actionLog_.prepend({time, message}); }, &StirraEngine::actionLogChanged);
    if (actionLog_.size() > mostLogEntries) {
        publish([&] { actionLog_.removeLast(); }, &StirraEngine::actionLogChanged);
    }
}

QString StirraEngine::formatDuration(qint64 seconds)
{
    const auto h = static_cast<long long>(seconds / secondsPerHour);
    const auto m = static_cast<long long>(seconds % secondsPerHour / secondsPerMinute);
    const auto s = static_cast<long long>(seconds % secondsPerMinute);
    if (h >= 1) {
        return QString::asprintf("%lldh %02lldm %02llds", h, m, s);
    }
    if (m >= 1) {
        return QString::asprintf("%lldm %02llds", m, s);
    }
    return QString::asprintf("%llds", s);
}

} // namespace stirra

#include "Platform/Qt/QtScheduler.h"

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Seconds shortestInterval{0.0001};

// Rounded up: a timer that fires early would have to be armed again, which is a wake-up for nothing.
std::chrono::milliseconds wholeMilliseconds(Seconds duration)
{
    constexpr double longest = std::numeric_limits<int>::max();
    const double milliseconds = std::ceil(duration.count() * 1000.0);
    return std::chrono::milliseconds(static_cast<int>(std::clamp(milliseconds, 0.0, longest)));
}

// Fires at start + n × interval: each time is computed from the start, so that no error adds up.
class GridTimer final : public QObject
{
public:
    GridTimer(Seconds interval, Scheduler::Callback callback)
        : interval_(interval > shortestInterval ? interval : shortestInterval)
        , callback_(std::make_shared<const Scheduler::Callback>(std::move(callback)))
    {
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        connect(&timer_, &QTimer::timeout, this, &GridTimer::reach);
        arm();
    }

    void invalidate()
    {
        timer_.stop();
        callback_.reset(); // and whatever it holds
        deleteLater();
    }

private:
    [[nodiscard]] Seconds elapsed() const { return Clock::now() - start_; }

    void arm() { timer_.start(wholeMilliseconds(interval_ * count_ - elapsed())); }

    void reach()
    {
        const double reached = std::floor(elapsed() / interval_);
        if (reached < count_) {
            arm();
            return;
        }
        count_ = reached + 1;
        const auto callback = callback_; // for as long as it runs
        (*callback)();
        if (callback_) {
            arm();
        }
    }

    const Seconds interval_;
    std::shared_ptr<const Scheduler::Callback> callback_; // none once it is invalid
    const Clock::time_point start_ = Clock::now();
    double count_ = 1; // the point of the grid that comes next
    QTimer timer_;
};

class GridTimerHandle final : public RepeatingTimer
{
public:
    explicit GridTimerHandle(GridTimer *timer)
        : timer_(timer)
    {}

    void invalidate() override
    {
        if (timer_) {
            std::exchange(timer_, nullptr)->invalidate();
        }
    }

private:
    QPointer<GridTimer> timer_;
};

} // namespace

std::shared_ptr<RepeatingTimer> QtScheduler::repeat(Seconds interval, Callback callback)
{
    auto *timer = new GridTimer(interval, std::move(callback));
    timer->setParent(QCoreApplication::instance());
    return std::make_shared<GridTimerHandle>(timer);
}

void QtScheduler::after(Seconds delay, Callback callback)
{
    QTimer::singleShot(wholeMilliseconds(delay), Qt::PreciseTimer, QCoreApplication::instance(),
                       std::move(callback));
}

std::chrono::system_clock::time_point QtScheduler::now() const
{
    return std::chrono::system_clock::now();
}

} // namespace platform

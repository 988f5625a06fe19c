#include "App/StirraEngine.h"
#include "Benchmarks/MixedPlatform.h"
#include "Benchmarks/PostingClock.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"

#include <QEventLoop>
#include <QTimer>

#include <array>
#include <cmath>
#include <thread>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;
using stirra::StirraEngine;

double millisecondsBetween(Clock::time_point from, Clock::time_point to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}

void runEventLoop(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

// How late the machine itself wakes a thread that asked for a sleep: what no program can be better than.
class BareSleeper
{
public:
    [[nodiscard]] std::vector<double> finish()
    {
        thread_.request_stop();
        thread_.join();
        return latenesses_;
    }

private:
    void sleepUntilStopped(const std::stop_token &stop)
    {
        constexpr std::chrono::milliseconds nap(50);
        while (!stop.stop_requested()) {
            const auto due = Clock::now() + nap;
            std::this_thread::sleep_until(due);
            latenesses_.push_back(millisecondsBetween(due, Clock::now()));
        }
    }

    std::vector<double> latenesses_;
    std::jthread thread_{[this](const std::stop_token &stop) { sleepUntilStopped(stop); }};
};

// An engine in one mode, on the real timers, posting to the display.
class TimedEngine
{
public:
    TimedEngine(platform::Platform &native, StirraEngine::Mode mode)
        : clock_(native.inputPoster())
        , platform_(native, native.scheduler(), clock_)
    {
        engine_.setMode(mode);
        engine_.setIntervalSeconds(interval);
        engine_.start();
    }

    // The last return is still to come.
    void stop() { engine_.stop(); }

    // The error that 99 of 100 returns stay within, in milliseconds.
    [[nodiscard]] double errorOfReturns(double expectedMilliseconds) const
    {
        if (clock_.delays().size() < fewestReturns) {
            throw NotMeasured("too few returns were posted");
        }
        std::vector<double> errors;
        for (const double delay : clock_.delays()) {
            errors.push_back(std::abs(delay - expectedMilliseconds));
        }
        return quantile(errors, usual);
    }

    static constexpr double usual = 0.99;

private:
    static constexpr double interval = 0.065;
    static constexpr std::size_t fewestReturns = 250;

    PostingClock clock_;
    MixedPlatform platform_;
    StirraEngine engine_;
};

std::vector<Row> returnRows()
{
    constexpr std::chrono::seconds duration(20);
    const auto native = platform::makeNativePlatform();
    BareSleeper sleeper;
    const auto mouse = std::make_unique<TimedEngine>(*native, StirraEngine::Mode::mouseJiggle);
    const auto scroll = std::make_unique<TimedEngine>(*native, StirraEngine::Mode::scroll);
    runEventLoop(duration);
    mouse->stop();
    scroll->stop();
    runEventLoop(std::chrono::milliseconds(200));
    const auto bare = "bare sleep " + figure(quantile(sleeper.finish(), TimedEngine::usual), "ms");
    return {limitRow("return after 50 ms, error (99 %)", mouse->errorOfReturns(50), 3, "ms", bare),
            limitRow("return after 100 ms, error (99 %)", scroll->errorOfReturns(100), 3, "ms", bare)};
}

// A repeating timer that remembers by how much it was late the last time.
class GridWatch
{
public:
    GridWatch(platform::Scheduler &scheduler, int intervals)
        : due_(Clock::now() + interval * intervals)
        , timer_(scheduler.repeat(interval, [this] { tick(); }))
    {}

    ~GridWatch() { timer_->invalidate(); }

    GridWatch(const GridWatch &) = delete;
    GridWatch &operator=(const GridWatch &) = delete;

    // Of the tick that was due at start + intervals x interval.
    [[nodiscard]] double millisecondsLate() const
    {
        if (!lateness_) {
            throw NotMeasured("the timer did not tick");
        }
        return *lateness_;
    }

    static constexpr std::chrono::milliseconds interval{10};

private:
    void tick()
    {
        const auto now = Clock::now();
        if (now >= due_ && !lateness_) {
            lateness_ = millisecondsBetween(due_, now);
        }
    }

    const Clock::time_point due_;
    std::optional<double> lateness_;
    std::shared_ptr<platform::RepeatingTimer> timer_;
};

std::vector<Row> driftRows()
{
    constexpr int intervals = 500;
    const auto native = platform::makeNativePlatform();
    std::array<std::unique_ptr<GridWatch>, 3> watches;
    for (auto &watch : watches) {
        watch = std::make_unique<GridWatch>(native->scheduler(), intervals);
        runEventLoop(std::chrono::milliseconds(33)); // apart, so that one interruption cannot delay all
    }
    runEventLoop(GridWatch::interval * (intervals + 10));
    std::vector<double> latenesses;
    for (const auto &watch : watches) {
        latenesses.push_back(watch->millisecondsLate());
    }
    return {limitRow("last of 500 ticks of 10 ms, late by", median(latenesses), 5, "ms")};
}

} // namespace

std::vector<Row> punctualityRows()
{
    auto rows = returnRows();
    const auto drift = driftRows();
    rows.insert(rows.end(), drift.begin(), drift.end());
    return rows;
}

} // namespace benchmarks

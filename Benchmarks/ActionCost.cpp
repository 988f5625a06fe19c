#include "App/StirraEngine.h"
#include "Benchmarks/MixedPlatform.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "Tests/Fakes/ManualScheduler.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <ctime>
#include <map>

namespace benchmarks {

namespace {

using stirra::StirraEngine;

constexpr int rounds = 30;
constexpr int actionsPerRound = 50;
constexpr int processesPerRound = 3;
constexpr double shareOfProcess = 1.0 / 20;
constexpr platform::Seconds interval{1};

double cpuMicroseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) * 1e-3;
}

double microseconds(const timeval &time)
{
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
}

// Another program's way to do the move of one action. Spawned, not forked, so that nothing of this process's
// size is in the figure.
double xdotoolMicroseconds()
{
    std::array<const char *, 5> words{"xdotool", "mousemove_relative", "1", "1", nullptr};
    pid_t process = 0;
    int status = 0;
    rusage usage{};
    if (posix_spawnp(&process, words[0], nullptr, nullptr, const_cast<char **>(words.data()), environ) != 0 ||
        wait4(process, &status, 0, &usage) != process || status != 0) {
        throw NotMeasured("xdotool does not run");
    }
    return microseconds(usage.ru_utime) + microseconds(usage.ru_stime);
}

// An engine that posts to the display, and whose time is moved by hand.
class SteppedEngine
{
public:
    SteppedEngine()
    {
        if (!native_->inputPoster().pointerLocation()) {
            throw NotMeasured("no way to post input");
        }
        engine_.setIntervalSeconds(interval.count());
        engine_.start();
    }

    // Of one action, with its return and the tick of the uptime; the mean of many.
    double actionMicroseconds(StirraEngine::Mode mode)
    {
        engine_.setMode(mode);
        const double before = cpuMicroseconds();
        scheduler_.advance(interval * actionsPerRound);
        return (cpuMicroseconds() - before) / actionsPerRound;
    }

private:
    std::unique_ptr<platform::Platform> native_ = platform::makeNativePlatform();
    fakes::ManualScheduler scheduler_;
    MixedPlatform platform_{*native_, scheduler_, native_->inputPoster()};
    StirraEngine engine_;
};

std::string nameOf(StirraEngine::Mode mode)
{
    return "CPU of one action: " + StirraEngine::rawValue(mode).toStdString();
}

} // namespace

std::vector<Row> actionCostRows()
{
    SteppedEngine engine;
    std::vector<double> xdotool;
    std::map<StirraEngine::Mode, std::vector<double>> actions;
    for (int round = 0; round < rounds; ++round) {
        for (const auto mode : StirraEngine::allModes) {
            actions[mode].push_back(engine.actionMicroseconds(mode));
        }
        for (int i = 0; i < processesPerRound; ++i) {
            xdotool.push_back(xdotoolMicroseconds());
        }
    }
    std::vector<Row> rows;
    for (const auto mode : StirraEngine::allModes) {
        rows.push_back(ratioRow(nameOf(mode), median(actions[mode]), median(xdotool), "us", shareOfProcess));
    }
    return rows;
}

} // namespace benchmarks

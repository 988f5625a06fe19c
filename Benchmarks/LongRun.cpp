#include "App/ActionLogModel.h"
#include "App/StirraEngine.h"
#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Sections.h"
#include "Tests/Fakes/FakePlatform.h"

#include <unistd.h>

#include <chrono>

namespace benchmarks {

namespace {

using stirra::StirraEngine;

constexpr int warmUpTicks = 10'000;
constexpr int ticks = 1'000'000;
constexpr int ticksPerMode = 500;
constexpr platform::Seconds interval{1};

// Runs the engine with the rows of its log beside it, each mode in turn.
void run(StirraEngine &engine, fakes::FakePlatform &platform, int count)
{
    for (int done = 0; done < count; done += ticksPerMode) {
        const auto turn = static_cast<std::size_t>(done / ticksPerMode) % StirraEngine::allModes.size();
        engine.setMode(StirraEngine::allModes.at(turn));
        platform.scheduler().advance(interval * ticksPerMode);
        platform.inputPoster().posted.clear();
    }
}

} // namespace

std::vector<Row> longRunRows()
{
    fakes::FakePlatform platform;
    StirraEngine engine;
    stirra::ActionLogModel log;
    log.setEngine(&engine);
    engine.setIntervalSeconds(interval.count());
    engine.start();
    run(engine, platform, warmUpTicks);

    const double memoryBefore = memoryOf(getpid()).resident;
    const auto start = std::chrono::steady_clock::now();
    run(engine, platform, ticks);
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
    const double growth = memoryOf(getpid()).resident - memoryBefore;
    if (engine.totalJiggles() != warmUpTicks + ticks || log.entryCount() != StirraEngine::mostLogEntries) {
        throw NotMeasured("the engine did not tick as often as its time passed");
    }
    return {limitRow("memory growth over a million ticks", growth, 1, "MB"),
            plainRow("time of a tick, with a tick of the uptime", figure(time.count() / ticks, "us"))};
}

} // namespace benchmarks

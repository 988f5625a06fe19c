#include "Benchmarks/Desktop.h"
#include "Benchmarks/FirstFrame.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"

namespace benchmarks {

namespace {

constexpr int rounds = 25;
constexpr std::chrono::seconds patience(10);

double millisecondsToFirstFrame(const Desktop &desktop, FirstFrameWatch &watch, const char *program)
{
    const auto process = desktop.start(QString::fromLatin1(program));
    const auto start = FirstFrameWatch::Clock::now();
    const auto firstFrame = watch.awaitFirstFrame(patience);
    if (!firstFrame) {
        throw NotMeasured(std::string("no first frame of ") + program);
    }
    return std::chrono::duration<double, std::milli>(*firstFrame - start).count();
}

} // namespace

std::vector<Row> startUpRows(const Desktop &desktop)
{
    FirstFrameWatch watch(desktop.display());
    std::vector<double> stirra;
    std::vector<double> emptyWindow;
    for (int round = -1; round < rounds; ++round) { // the first one fills the caches
        const double stirraTime = millisecondsToFirstFrame(desktop, watch, stirraProgram);
        const double emptyWindowTime = millisecondsToFirstFrame(desktop, watch, emptyWindowProgram);
        if (round >= 0) {
            stirra.push_back(stirraTime);
            emptyWindow.push_back(emptyWindowTime);
        }
    }
    return {ratioRow("start to first frame", median(stirra), median(emptyWindow), "ms", 1.5)};
}

} // namespace benchmarks

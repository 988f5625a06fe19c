// What a beating heart in the panel costs.

#include "Benchmarks/Desktop.h"
#include "Benchmarks/FrameCount.h"
#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Sections.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/StatusPanel.h"

#include <chrono>
#include <cmath>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds settlingTime(3);
constexpr std::chrono::seconds countingTime(20);
// Ten minutes at 60 beats of eight frames a minute. At a hundred times the rate they take six seconds.
constexpr int framesOfTenMinutes = 4800;
constexpr std::chrono::seconds acceleratedPatience(60);

std::unique_ptr<testsupport::ChildProcess> startHeart(const Desktop &desktop, const char *bpm)
{
    auto heart =
        desktop.start(QStringLiteral("stirra-heart"), {QString::fromLatin1(bpm)}, desktop.environment());
    testsupport::letPass(settlingTime);
    return heart;
}

std::vector<Row> beatRows(const Desktop &desktop)
{
    const auto heart = startHeart(desktop, "60");
    const FrameCount count(desktop.bus().connect());
    const auto wakeUps = wakeUpsOf(heart->pid());
    const double cpuTime = cpuTimeOf(heart->pid());
    const auto start = Clock::now();
    testsupport::letPass(countingTime);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    const auto woken = static_cast<double>(wakeUpsBetween(wakeUps, wakeUpsOf(heart->pid())));
    const double late = std::abs(count.frames() / seconds / 8 - 1) * 100;
    return {limitRow("a heart of 60 beats a minute, CPU", (cpuTimeOf(heart->pid()) - cpuTime) / seconds * 100,
                     1, "%"),
            limitRow("the same, wake-ups", woken / seconds, 20, "/s"),
            limitRow("the same, frames in 20 s off the rate asked", late, 2, "%")};
}

Row memoryRow(const Desktop &desktop)
{
    const auto heart = startHeart(desktop, "6000");
    const FrameCount count(desktop.bus().connect());
    const double before = memoryOf(heart->pid()).resident;
    if (!testsupport::eventually([&count] { return count.frames() >= framesOfTenMinutes; },
                                 acceleratedPatience)) {
        throw NotMeasured("the heart does not beat");
    }
    return limitRow("the same, memory after ten minutes' frames", memoryOf(heart->pid()).resident - before,
                    0.1, "MB");
}

} // namespace

std::vector<Row> menuBarRows()
{
    const Desktop desktop(Desktop::Windows::managed);
    const testsupport::StatusPanel panel(desktop.runtime());
    if (!panel.isOpen()) {
        throw NotMeasured("the panel does not come up");
    }
    auto rows = beatRows(desktop);
    rows.push_back(memoryRow(desktop));
    return rows;
}

} // namespace benchmarks

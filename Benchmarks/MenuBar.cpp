// What a beating heart in the panel costs.

#include "Benchmarks/Desktop.h"
#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Sections.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/StatusPanel.h"

#include <chrono>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds settlingTime(3);
constexpr std::chrono::seconds countingTime(20);
// Ten minutes at 60 beats a minute are as many frames as six seconds at a hundred times that; some are late.
constexpr std::chrono::seconds acceleratedTime(8);

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
    const auto wakeUps = wakeUpsOf(heart->pid());
    const double cpuTime = cpuTimeOf(heart->pid());
    const auto start = Clock::now();
    testsupport::letPass(countingTime);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    const auto woken = static_cast<double>(wakeUpsBetween(wakeUps, wakeUpsOf(heart->pid())));
    return {limitRow("a heart of 60 beats a minute, CPU", (cpuTimeOf(heart->pid()) - cpuTime) / seconds * 100,
                     1, "%"),
            limitRow("the same, wake-ups", woken / seconds, 20, "/s")};
}

Row memoryRow(const Desktop &desktop)
{
    const auto heart = startHeart(desktop, "6000");
    const double before = memoryOf(heart->pid()).resident;
    testsupport::letPass(acceleratedTime);
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

// Measures Stirra beside its yardsticks and prints one table. The exit status says whether everything could
// be measured, not whether the figures are good. An argument leaves only the section of that name.

#include "Benchmarks/Desktop.h"
#include "Benchmarks/IdlePrograms.h"
#include "Benchmarks/Sections.h"
#include "Platform/Platform.h"

#include <QGuiApplication>

#include <unistd.h>

#include <iostream>
#include <optional>

namespace {

using namespace benchmarks;

// What runs in this process runs on the private desktop, too.
void moveTo(const Desktop &desktop)
{
    clearenv();
    const auto &environment = desktop.environment();
    for (const auto &name : environment.keys()) {
        qputenv(name.toLocal8Bit().constData(), environment.value(name).toLocal8Bit());
    }
}

// The programs idle while the punctuality of this process is measured, which takes about as long.
void addIdleRows(Report &report)
{
    std::optional<IdlePrograms> programs;
    report.add("memory", [&programs] { return programs.emplace().memoryRows(); });
    report.add("settling", [&programs]() -> std::vector<Row> {
        if (programs) {
            programs->startCounting();
        }
        return {};
    });
    report.add("punctuality", punctualityRows);
    if (programs) {
        report.add("wake-ups", [&programs] { return programs->wakeUpRows(); });
    }
}

int measure(int argc, char **argv)
{
    const Desktop desktop(Desktop::Windows::unmanaged);
    moveTo(desktop);
    platform::prepareProcess();
    const QGuiApplication application(argc, argv);

    sync(); // pages of a program just built that are still to be written would count as its own memory

    Report report(argc > 1 ? argv[1] : "");
    report.add("start-up", [&desktop] { return startUpRows(desktop); });
    addIdleRows(report);
    report.add("drawing", [&desktop] { return drawingRows(desktop); });
    report.add("menu bar", menuBarRows);
    report.add("wayland", waylandRows);
    report.add("cost of an action", actionCostRows);
    report.add("a million ticks", longRunRows);
    report.add("listening", listeningRows);
    report.add("storage", storageRows);
    report.add("records", recordRows);
    report.add("sensors", sensorRows);
    report.print();
    return report.isComplete() ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv)
{
    try {
        return measure(argc, argv);
    } catch (const benchmarks::NotMeasured &reason) {
        std::cerr << "Not measured: " << reason.what() << '\n';
        return EXIT_FAILURE;
    }
}

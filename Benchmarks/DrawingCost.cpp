// What the kit's components cost to draw, each page in a process of its own.

#include "Benchmarks/Desktop.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"

#include <algorithm>
#include <functional>
#include <sstream>

namespace benchmarks {

namespace {

constexpr int rounds = 3;
constexpr int secondsOfRound = 4;

struct Drawing
{
    double frames = 0;
    double seconds = 0;
    double cpuTime = 0; // seconds

    [[nodiscard]] double framesPerSecond() const { return frames / seconds; }
    [[nodiscard]] double cpuPercent() const { return 100 * cpuTime / seconds; }
    [[nodiscard]] double cpuMillisecondsPerFrame() const { return 1000 * cpuTime / std::max(frames, 1.0); }
};

using Variables = std::vector<std::pair<const char *, const char *>>;

Drawing draw(const Desktop &desktop, const char *page, const Variables &variables = {})
{
    auto environment = desktop.environment();
    for (const auto &[name, value] : variables) {
        environment.insert(QString::fromLatin1(name), QString::fromLatin1(value));
    }
    const auto process =
        desktop.start(QStringLiteral("stirra-drawing"),
                      {QString::fromLatin1(page), QString::number(secondsOfRound)}, environment);
    const auto status = process->waitForExit(std::chrono::seconds(30));
    std::istringstream figures(process->standardOutput().toStdString());
    Drawing drawing;
    if (status != 0 || !(figures >> drawing.frames >> drawing.seconds >> drawing.cpuTime)) {
        throw NotMeasured(std::string("no drawing of ") + page);
    }
    return drawing;
}

double medianOf(const std::vector<Drawing> &drawings, const std::function<double(const Drawing &)> &figure)
{
    std::vector<double> figures;
    std::ranges::transform(drawings, std::back_inserter(figures), figure);
    return median(figures);
}

} // namespace

std::vector<Row> drawingRows(const Desktop &desktop)
{
    std::vector<Drawing> ours;
    std::vector<Drawing> theirs;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(draw(desktop, "Background"));
        theirs.push_back(draw(desktop, "ShaderBackground",
                              {{"QSG_RHI_BACKEND", "opengl"}, {"LIBGL_ALWAYS_SOFTWARE", "1"}}));
    }
    const auto percent = figure(medianOf(theirs, &Drawing::cpuPercent), "%");
    const auto rate = figure(medianOf(theirs, &Drawing::framesPerSecond), "/s");
    return {leastRow("background of 1280 x 800: frames", medianOf(ours, &Drawing::framesPerSecond), 60, "/s",
                     rate),
            limitRow("  of one core, meanwhile", medianOf(ours, &Drawing::cpuPercent), 35, "%", percent),
            ratioRow("  CPU time of a frame, shaders as yardstick",
                     medianOf(ours, &Drawing::cpuMillisecondsPerFrame),
                     medianOf(theirs, &Drawing::cpuMillisecondsPerFrame), "ms", 0.2),
            limitRow("frames of idle components in 4 s", draw(desktop, "IdleComponents").frames, 0, "")};
}

} // namespace benchmarks

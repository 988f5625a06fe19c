// Programs that nobody touches: what they keep in memory, and how often they wake up.
#pragma once

#include "Benchmarks/Desktop.h"
#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Report.h"

#include <chrono>
#include <memory>
#include <optional>

namespace benchmarks {

// A program on a desktop of its own.
class IdleProgram
{
public:
    // With that variable of its environment set, where one is given. Throws NotMeasured where no window
    // comes.
    explicit IdleProgram(const char *program, const char *variable = nullptr);

    [[nodiscard]] const Desktop &desktop() const { return desktop_; }
    [[nodiscard]] Memory memory() const { return memoryOf(process_->pid()); }
    [[nodiscard]] std::chrono::steady_clock::time_point openedAt() const { return openedAt_; }

    void restart();

    void startCounting();
    // Since counting began.
    [[nodiscard]] double wakeUpsPerSecond() const;
    [[nodiscard]] double cpuPercent() const;

private:
    [[nodiscard]] double countedSeconds() const;

    const char *program_;
    Desktop desktop_;
    std::unique_ptr<testsupport::ChildProcess> process_;
    std::chrono::steady_clock::time_point openedAt_;
    std::chrono::steady_clock::time_point countedFrom_;
    WakeUps wakeUpsBefore_;
    double cpuTimeBefore_ = 0;
};

// Stirra inactive, active, and active with its window closed, an empty window, and the peer program where it
// is installed. All idle at the same time, since a program that sleeps does not mind the others.
class IdlePrograms
{
public:
    // Throws NotMeasured where one of them does not come up.
    IdlePrograms();

    // Takes some 10 s: the programs are started again for each reading.
    [[nodiscard]] std::vector<Row> memoryRows();

    // Waits until the programs have settled and counts from then on.
    void startCounting();
    // Waits until 20 s have been counted.
    [[nodiscard]] std::vector<Row> wakeUpRows() const;

private:
    void settle() const;

    IdleProgram shown_;
    IdleProgram closed_;
    IdleProgram inactive_;
    IdleProgram emptyWindow_;
    // With its picture in memory of its own, as Stirra has it, rather than shared with the X server: shared
    // memory is not in the figure for private memory, however much of it there is.
    IdleProgram emptyWindowWithPicture_;
    std::unique_ptr<IdleProgram> peer_;
    std::chrono::steady_clock::time_point countedFrom_;
};

} // namespace benchmarks

#include "Benchmarks/IdlePrograms.h"

namespace benchmarks {

using Clock = std::chrono::steady_clock;

IdleProgram::IdleProgram(const char *program, const char *variable)
    : program_(program)
    , desktop_(Desktop::Windows::managed)
{
    if (variable) {
        desktop_.setVariable(variable);
    }
    restart();
}

void IdleProgram::restart()
{
    process_.reset();
    process_ = desktop_.open(QString::fromLocal8Bit(program_));
    openedAt_ = Clock::now();
}

void IdleProgram::startCounting()
{
    wakeUpsBefore_ = wakeUpsOf(process_->pid());
    cpuTimeBefore_ = cpuTimeOf(process_->pid());
    countedFrom_ = Clock::now();
}

double IdleProgram::countedSeconds() const
{
    return std::chrono::duration<double>(Clock::now() - countedFrom_).count();
}

double IdleProgram::wakeUpsPerSecond() const
{
    const auto wakeUps = wakeUpsBetween(wakeUpsBefore_, wakeUpsOf(process_->pid()));
    return static_cast<double>(wakeUps) / countedSeconds();
}

double IdleProgram::cpuPercent() const
{
    return (cpuTimeOf(process_->pid()) - cpuTimeBefore_) / countedSeconds() * 100;
}

} // namespace benchmarks

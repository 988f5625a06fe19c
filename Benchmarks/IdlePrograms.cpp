#include "Benchmarks/IdlePrograms.h"

#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "Tests/Support/Eventually.h"

#include <QStandardPaths>

#include <thread>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int memoryRounds = 3;
constexpr std::chrono::seconds idleBeforeMemory(2);
constexpr std::chrono::seconds countingTime(20);
// With the default interval of 30 s, one action falls into the time that is counted.
constexpr std::chrono::seconds settlingTime(12);
constexpr double ticksPerSecond = 0.9; // what an active engine shows at the least, a late tick allowed for

constexpr xcb_keysym_t tabKey = 0xff09;
constexpr xcb_keysym_t spaceKey = 0x20;
constexpr int mostLogEntries = 50;
constexpr std::chrono::milliseconds betweenKeys(20); // a release and a press closer together are a repetition

// The button that starts and stops comes first in the Tab order; each press of it logs one line.
void pressToggle(const Desktop &desktop, int times)
{
    desktop.type(tabKey);
    for (int i = 0; i < times; ++i) {
        std::this_thread::sleep_for(betweenKeys);
        desktop.type(spaceKey);
    }
}

std::unique_ptr<IdleProgram> openPeer()
{
    constexpr auto name = "caffeine";
    const auto path = QStandardPaths::findExecutable(QString::fromLatin1(name));
    return path.isEmpty() ? nullptr : std::make_unique<IdleProgram>(name);
}

struct MemorySamples
{
    std::vector<double> resident;
    std::vector<double> privateDirty;
    std::vector<double> privateAll;

    void add(const Memory &memory)
    {
        resident.push_back(memory.resident);
        privateDirty.push_back(memory.privateDirty);
        privateAll.push_back(memory.privateAll);
    }
};

std::string megabytes(const Memory &memory)
{
    return figure(memory.resident, "MB") + ", " + figure(memory.privateDirty, "MB private");
}

double activeRate(const IdleProgram &program)
{
    const double rate = program.wakeUpsPerSecond();
    if (rate < ticksPerSecond) {
        throw NotMeasured("the engine of the active program does not tick");
    }
    return rate;
}

} // namespace

IdlePrograms::IdlePrograms()
    : shown_(stirraProgram)
    , closed_(stirraProgram)
    , inactive_(stirraProgram)
    , emptyWindow_(emptyWindowProgram)
    , emptyWindowWithPicture_(emptyWindowProgram, "QT_XCB_NO_MITSHM")
    , peer_(openPeer())
{
    pressToggle(shown_.desktop(), mostLogEntries + 1); // an odd number of times: active in the end
    pressToggle(closed_.desktop(), 1);
    closed_.desktop().closeWindow();
}

std::vector<Row> IdlePrograms::memoryRows()
{
    MemorySamples stirra;
    MemorySamples empty;
    MemorySamples emptyWithPicture;
    for (int round = 0; round < memoryRounds; ++round) {
        inactive_.restart();
        emptyWindow_.restart();
        emptyWindowWithPicture_.restart();
        testsupport::letPass(idleBeforeMemory);
        stirra.add(inactive_.memory());
        empty.add(emptyWindow_.memory());
        emptyWithPicture.add(emptyWindowWithPicture_.memory());
    }
    return {
        ratioRow("resident memory, inactive", median(stirra.resident), median(empty.resident), "MB", 1.3),
        ratioRow("private memory (dirty), inactive", median(stirra.privateDirty), median(empty.privateDirty),
                 "MB", 1.8),
        ratioRow("the same, both with a picture of their own", median(stirra.privateDirty),
                 median(emptyWithPicture.privateDirty), "MB", 1.8),
        plainRow("private memory (dirty and clean), inactive", figure(median(stirra.privateAll), "MB"),
                 figure(median(empty.privateAll), "MB")),
        plainRow("memory, active with a full log", megabytes(shown_.memory())),
    };
}

void IdlePrograms::startCounting()
{
    const auto settled = shown_.openedAt() + settlingTime;
    static_cast<void>(testsupport::eventually([settled] { return Clock::now() >= settled; }, settlingTime));
    for (auto *program : {&shown_, &closed_, &inactive_, &emptyWindow_}) {
        program->startCounting();
    }
    countedFrom_ = Clock::now();
}

std::vector<Row> IdlePrograms::wakeUpRows() const
{
    const auto end = countedFrom_ + countingTime;
    static_cast<void>(testsupport::eventually([end] { return Clock::now() >= end; }, countingTime));
    std::vector<Row> rows{
        limitRow("wake-ups, inactive", inactive_.wakeUpsPerSecond() * 20, 2, "in 20 s",
                 figure(emptyWindow_.wakeUpsPerSecond() * 20, "in 20 s")),
        limitRow("wake-ups, active and shown", activeRate(shown_), 3, "/s"),
        limitRow("wake-ups, active and closed", activeRate(closed_), 1.5, "/s"),
        limitRow("CPU, active and shown", shown_.cpuPercent(), 0.3, "%"),
        plainRow("CPU, active and closed", figure(closed_.cpuPercent(), "%")),
    };
    if (peer_) {
        rows.push_back(
            plainRow("memory, beside caffeine", megabytes(inactive_.memory()), megabytes(peer_->memory())));
    }
    return rows;
}

} // namespace benchmarks

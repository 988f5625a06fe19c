// Records of several processes, and of processes that are killed.

#include "Tests/SharedCore/ModelContextTest.h"
#include "Tests/SharedCore/RecordProgram.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Eventually.h"

#include <array>
#include <csignal>
#include <map>
#include <thread>

namespace sharedcore {

namespace {

using namespace recordprogram;
using testsupport::ChildProcess;

// By writer: its batches, with the number of their items.
using Batches = std::map<std::string, std::map<int, int>>;

constexpr int endless = 1'000'000'000;

class RecordProcessTest : public testing::Test
{
protected:
    [[nodiscard]] std::shared_ptr<platform::ObjectStore> openStore()
    {
        auto opened = place_.open(schemaOf<ClipboardItem>());
        EXPECT_EQ(opened.status, StoreStatus::done);
        return std::move(opened.store);
    }

    [[nodiscard]] std::unique_ptr<ChildProcess> start(const QString &writer, int batches) const
    {
        return startOn(place_.path(), writer, batches);
    }

    [[nodiscard]] static std::unique_ptr<ChildProcess> startOn(const std::filesystem::path &file,
                                                               const QString &writer, int batches)
    {
        return std::make_unique<ChildProcess>(
            QStringLiteral(STIRRA_RECORD_PROGRAM),
            QStringList{QString::fromStdString(file.string()), writer, QString::number(batches)},
            QProcessEnvironment::systemEnvironment());
    }

    [[nodiscard]] Batches savedBatches()
    {
        Batches batches;
        ModelContext context(openStore());
        for (const auto &item : itemsIn(context)) {
            ++batches[item->appSource().value_or("")][std::stoi(item->content())];
        }
        return batches;
    }

    void expectSoundFile() const { expectNothingSetAside(place_.folder()); }

    static void expectNothingSetAside(const std::filesystem::path &folder)
    {
        for (const auto &entry : std::filesystem::directory_iterator(folder)) {
            EXPECT_EQ(entry.path().filename().string().find("damaged"), std::string::npos);
        }
    }

    static int lastToldBy(const ChildProcess &process)
    {
        const auto lines = process.standardOutput().split('\n');
        return lines.size() < 2 ? 0 : lines[lines.size() - 2].toInt();
    }

    // What is there once the batch `last` was saved.
    static std::map<int, int> batchesUpTo(int last)
    {
        std::map<int, int> batches;
        for (int batch = std::max(1, last - batchesKept + 1); batch <= last; ++batch) {
            batches[batch] = itemsInBatch;
        }
        return batches;
    }

private:
    testsupport::FilePlace place_;
};

// STIRRA_TEST_KILLS says how often; 500 by default.
TEST_F(RecordProcessTest, KeepsWholeSavesWhereverItIsKilled)
{
    bool isNumber = false;
    const int wantedKills = qEnvironmentVariableIntValue("STIRRA_TEST_KILLS", &isNumber);
    const int kills = isNumber ? wantedKills : 500;
    int previous = 0;
    for (int round = 0; round < kills; ++round) {
        const auto process = start(QStringLiteral("writer"), endless);
        const int wanted = previous + 1 + round % 7;
        ASSERT_TRUE(testsupport::eventually([&] { return lastToldBy(*process) >= wanted; }));
        process->sendSignal(SIGKILL);
        ASSERT_EQ(process->waitForExit(), -SIGKILL);
        const int told = lastToldBy(*process);
        const auto batches = savedBatches()["writer"];
        ASSERT_FALSE(batches.empty());
        previous = batches.rbegin()->first;
        ASSERT_GE(previous, told); // the last save may have been done and not told
        ASSERT_LE(previous, told + 1);
        ASSERT_EQ(batches, batchesUpTo(previous));
    }
    expectSoundFile();
}

TEST_F(RecordProcessTest, CanBeOpenedWhereverItsMakingWasKilled)
{
    constexpr int kills = 60;
    for (int round = 0; round < kills; ++round) {
        testsupport::FilePlace place;
        const std::array firstSigns{place.folder(), place.path(),
                                    std::filesystem::path(place.path()) += "-wal"};
        const auto &sign = firstSigns[static_cast<std::size_t>(round) % firstSigns.size()];
        const auto process = startOn(place.path(), QStringLiteral("writer"), endless);
        while (process->isRunning() && !std::filesystem::exists(sign)) {
        }
        process->sendSignal(SIGKILL);
        ASSERT_EQ(process->waitForExit(), -SIGKILL);
        const auto opened = place.open(schemaOf<ClipboardItem>());
        ASSERT_EQ(opened.status, StoreStatus::done);
        expectNothingSetAside(place.folder());
    }
}

TEST_F(RecordProcessTest, KeepsWhatSeveralProcessesSaveAtOnce)
{
    constexpr int batches = 40;
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (const char writer : {'a', 'b', 'c', 'd'}) {
        processes.push_back(start(QString(QLatin1Char(writer)), batches));
    }
    for (const auto &process : processes) {
        EXPECT_EQ(process->waitForExit(std::chrono::seconds(50)), 0);
    }
    const auto expected = batchesUpTo(batches);
    EXPECT_EQ(savedBatches(), (Batches{{"a", expected}, {"b", expected}, {"c", expected}, {"d", expected}}));
    expectSoundFile();
}

TEST_F(RecordProcessTest, KeepsWhatSeveralContextsSaveAtOnce)
{
    constexpr int batches = 25;
    const auto store = openStore();
    std::vector<std::thread> threads;
    for (const char writer : {'a', 'b', 'c', 'd'}) {
        threads.emplace_back([store, writer] {
            ModelContext context(store);
            for (int batch = 1; batch <= batches; ++batch) {
                for (int i = 0; i < itemsInBatch; ++i) {
                    context.insert(
                        std::make_shared<ClipboardItem>(std::to_string(batch), std::string(1, writer)));
                }
                EXPECT_EQ(context.save(), StoreStatus::done);
                itemsIn(context, FetchDescriptor<ClipboardItem>().limitedTo(5));
            }
        });
    }
    for (auto &thread : threads) {
        thread.join();
    }
    std::map<int, int> expected;
    for (int batch = 1; batch <= batches; ++batch) {
        expected[batch] = itemsInBatch;
    }
    EXPECT_EQ(savedBatches(), (Batches{{"a", expected}, {"b", expected}, {"c", expected}, {"d", expected}}));
}

} // namespace

} // namespace sharedcore

// What is there after processes were killed, and after many wrote at once.

#include "SharedCore/Storage/UsageStats.h"
#include "Tests/SharedCore/RealStorageTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <random>

namespace sharedcore {

namespace {

using Clock = std::chrono::steady_clock;

// A copy of this process that does one thing, and tells numbers through a pipe. It is killed in the end. The
// process has to have no database open, and no other thread.
class Fork
{
public:
    using Tell = std::function<void(std::int64_t)>;

    explicit Fork(const std::function<void(const Tell &)> &work)
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        process_ = fork();
        if (process_ == 0) {
            work([&ends](std::int64_t number) {
                static_cast<void>(!write(ends[1], &number, sizeof number)); // the parent is gone
            });
            _exit(0);
        }
        close(ends[1]);
        reading_ = ends[0];
    }
    Fork(const Fork &) = delete;
    Fork &operator=(const Fork &) = delete;
    ~Fork()
    {
        end();
        close(reading_);
    }

    // The next number; nothing once the process has ended and all were read. Waits for it.
    [[nodiscard]] std::optional<std::int64_t> next() const
    {
        std::int64_t number = 0;
        const auto length = read(reading_, &number, sizeof number);
        return length == static_cast<ssize_t>(sizeof number) ? std::optional(number) : std::nullopt;
    }

    void end()
    {
        if (process_ > 0) {
            kill(process_, SIGKILL);
            waitpid(process_, nullptr, 0);
            process_ = 0;
        }
    }

private:
    pid_t process_ = 0;
    int reading_ = -1;
};

std::int64_t numberFrom(const char *variable, std::int64_t otherwise)
{
    const char *text = std::getenv(variable);
    return text ? std::atoll(text) : otherwise;
}

constexpr int features = 300;

// Every part of it says the same number, and it takes several pages.
UsageStats statsOf(std::int64_t number)
{
    UsageStats stats{.launchCount = number, .totalUsageTime = static_cast<double>(number)};
    for (int feature = 0; feature < features; ++feature) {
        stats.featureUsage["feature " + std::to_string(feature)] = number;
    }
    return stats;
}

[[noreturn]] void saveForEver(std::int64_t number, const Fork::Tell &tell)
{
    for (RealStorage storage;; ++number) {
        storage->set(statsOf(number), "usage");
        if (storage->get<UsageStats>("usage") == statsOf(number)) { // the call itself does not answer
            tell(number);
        }
    }
}

using DurabilityTest = RealStorageTest;

// STIRRA_TEST_KILLS says how often; 500 by default.
TEST_F(DurabilityTest, LosesNoSavedRecordAndTearsNoneWhereProcessesAreKilledWhileTheySave)
{
    std::mt19937 random(20'010'101); // NOLINT: the same at each run
    std::int64_t number = 0;
    const auto kills = numberFrom("STIRRA_TEST_KILLS", 500);
    for (std::int64_t round = 0; round < kills; ++round) {
        std::int64_t acknowledged = 0;
        {
            Fork process([number](const auto &tell) { saveForEver(number + 1, tell); });
            for (auto count = 1 + random() % 3; count > 0; --count) {
                acknowledged = process.next().value_or(0);
            }
            const auto deadline = Clock::now() + std::chrono::microseconds(random() % 3000);
            while (Clock::now() < deadline) { // somewhere in the saves that follow
            }
            process.end();
            while (const auto told = process.next()) {
                acknowledged = *told;
            }
        }
        RealStorage storage;
        const auto found = storage->get<UsageStats>("usage");
        ASSERT_TRUE(found) << "after " << round << " kills";
        ASSERT_EQ(*found, statsOf(found->launchCount));
        ASSERT_GE(found->launchCount, acknowledged);
        ASSERT_LE(found->launchCount, acknowledged + 1); // which was saved, and not told of any more
        number = found->launchCount;
    }
    RecordProperty("saves", std::to_string(number));
}

// STIRRA_TEST_WRITING_SECONDS says for how long; by default each process writes 100 values.
TEST_F(DurabilityTest, HasEveryAcknowledgedWriteOfEightProcessesThatWriteAtOnce)
{
    constexpr int processes = 8;
    const auto seconds = numberFrom("STIRRA_TEST_WRITING_SECONDS", 0);
    const auto end = Clock::now() + std::chrono::seconds(seconds);
    std::vector<std::unique_ptr<Fork>> writers;
    for (std::int64_t writer = 0; writer < processes; ++writer) {
        writers.push_back(std::make_unique<Fork>([writer, seconds, end](const auto &tell) {
            const auto services = platform::makeNativeStorage();
            const auto store = services->openApplicationDefaults();
            std::int64_t count = 0;
            std::int64_t refused = 0; // by a disk that stood still for seconds
            while (seconds > 0 ? Clock::now() < end : count < 100 && refused < 10) {
                const bool isKept =
                    store->setValue(std::to_string(writer) + "/" + std::to_string(count), count);
                ++(isKept ? count : refused);
            }
            tell(count);
            tell(refused);
        }));
    }
    std::vector<std::int64_t> counts;
    std::int64_t refused = 0;
    for (const auto &writer : writers) {
        counts.push_back(writer->next().value_or(0));
        refused += writer->next().value_or(0);
    }
    writers.clear();

    RealStorage storage;
    std::int64_t total = 0;
    for (std::size_t writer = 0; writer < counts.size(); ++writer) {
        EXPECT_GT(counts[writer], 0);
        total += counts[writer];
        for (std::int64_t count = 0; count < counts[writer]; ++count) {
            const auto key = std::to_string(writer) + "/" + std::to_string(count);
            ASSERT_EQ(storage->get(key), platform::PropertyValue(count)) << key;
        }
    }
    RecordProperty("writes", std::to_string(total));
    std::cout << total << " writes of eight processes, " << refused << " refused\n";
}

} // namespace

} // namespace sharedcore

#include "Benchmarks/PlainDatabase.h"
#include "Benchmarks/RecordContent.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "SharedCore/Storage/ClipboardItem.h"
#include "SharedCore/Storage/ModelContext.h"
#include "Tests/Support/TemporaryFolder.h"

#include <chrono>
#include <functional>
#include <memory>

namespace benchmarks {

namespace {

using namespace sharedcore;
using Clock = std::chrono::steady_clock;

constexpr int recordCount = 100'000;
constexpr int newestCount = 50;
constexpr int rounds = 5;
constexpr int fetchesPerRound = 10;

double milliseconds(const std::function<void()> &work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void require(bool isDone, const char *what)
{
    if (!isDone) {
        throw NotMeasured(what);
    }
}

std::unique_ptr<ModelContext> openContext(const std::filesystem::path &file)
{
    auto opened = platform::openObjectStore(file, schemaOf<ClipboardItem>());
    require(opened.store != nullptr, "the store does not open");
    return std::make_unique<ModelContext>(std::move(opened.store));
}

// Makes the records, too.
void saveItems(ModelContext &context)
{
    for (int number = 0; number < recordCount; ++number) {
        auto item = std::make_shared<ClipboardItem>(recordContent(number), recordSource);
        item->setTimestamp(*foundation::dateFromReferenceSeconds(recordSeconds(number)));
        context.insert(item);
    }
    require(context.save() == StoreStatus::done, "the store does not save");
}

void fetchNewest(ModelContext &context)
{
    const auto newest = context.fetch(FetchDescriptor<ClipboardItem>()
                                          .sortedBy(&ClipboardItem::timestamp, SortOrder::reverse)
                                          .limitedTo(newestCount));
    require(newest.records.size() == newestCount, "the store does not find its records");
}

struct Samples
{
    std::vector<double> save;
    std::vector<double> firstFetch; // by a store that was just opened
    std::vector<double> fetch;
    std::vector<double> plainSave;
    std::vector<double> plainFetch;
};

void measureStore(const std::filesystem::path &file, Samples &samples)
{
    auto context = openContext(file);
    samples.save.push_back(milliseconds([&context] { saveItems(*context); }));
    context = openContext(file);
    samples.firstFetch.push_back(milliseconds([&context] { fetchNewest(*context); }));
    for (int i = 0; i < fetchesPerRound; ++i) {
        samples.fetch.push_back(milliseconds([&context] { fetchNewest(*context); }));
    }
}

void measurePlain(const std::filesystem::path &file, Samples &samples)
{
    PlainDatabase database(file);
    samples.plainSave.push_back(milliseconds([&database] { database.insert(recordCount); }));
    for (int i = 0; i < fetchesPerRound; ++i) {
        samples.plainFetch.push_back(milliseconds([&database] {
            require(database.readNewest(newestCount) == newestCount, "SQLite does not find its rows");
        }));
    }
}

} // namespace

std::vector<Row> recordRows()
{
    Samples samples;
    for (int round = 0; round < rounds; ++round) {
        const testsupport::TemporaryFolder folder;
        measureStore(folder.path() / "store" / "records.sqlite", samples);
        measurePlain(folder.path() / "plain.sqlite", samples);
    }
    const auto plainSave = "plain SQLite " + figure(median(samples.plainSave), "ms");
    const auto plainFetch = "plain SQLite " + figure(median(samples.plainFetch), "ms");
    return {
        limitRow("100,000 records made and saved at once", median(samples.save), 2000, "ms", plainSave),
        limitRow("50 newest of them, first fetch", median(samples.firstFetch), 5, "ms", plainFetch),
        limitRow("50 newest of them, again", median(samples.fetch), 5, "ms", plainFetch),
    };
}

} // namespace benchmarks

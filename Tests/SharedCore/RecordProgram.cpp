// Saves clipboard items, batch after batch, to be killed in the middle or to run beside others:
//
//     RecordProgram FILE WRITER BATCHES
//
// Batch n is one save: it inserts items with the content "WRITER n" and deletes those of an earlier batch, so
// that a few batches are there at any time. After each save that is done its number is printed. Goes on from
// what is in the file already.

#include "Tests/SharedCore/RecordProgram.h"
#include "SharedCore/Storage/ClipboardItem.h"
#include "SharedCore/Storage/ModelContext.h"

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

using namespace sharedcore;
using namespace recordprogram;

class Writer
{
public:
    Writer(ModelContext &context, std::string name)
        : context_(context)
        , name_(std::move(name))
    {}

    // 0 where there is none.
    [[nodiscard]] int lastBatch() const
    {
        const auto items = context_
                               .fetch(FetchDescriptor<ClipboardItem>()
                                          .where(&ClipboardItem::appSource, Comparison::equal, name_)
                                          .sortedBy(&ClipboardItem::timestamp, SortOrder::reverse)
                                          .limitedTo(1))
                               .records;
        return items.empty() ? 0 : std::stoi(items.front()->content());
    }

    bool save(int batch)
    {
        for (int i = 0; i < itemsInBatch; ++i) {
            context_.insert(std::make_shared<ClipboardItem>(std::to_string(batch), name_));
        }
        for (const auto &item : itemsOf(batch - batchesKept)) {
            context_.remove(*item);
        }
        auto status = context_.save();
        while (status == StoreStatus::busy) {
            status = context_.save();
        }
        return status == StoreStatus::done;
    }

private:
    [[nodiscard]] std::vector<std::shared_ptr<ClipboardItem>> itemsOf(int batch) const
    {
        return context_
            .fetch(FetchDescriptor<ClipboardItem>()
                       .where(&ClipboardItem::appSource, Comparison::equal, name_)
                       .where(&ClipboardItem::content, Comparison::equal, std::to_string(batch)))
            .records;
    }

    ModelContext &context_;
    const std::string name_;
};

void tell(int batch)
{
    const auto line = std::to_string(batch) + "\n";
    static_cast<void>(::write(STDOUT_FILENO, line.data(), line.size()));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        return EXIT_FAILURE;
    }
    auto opened = platform::openObjectStore(argv[1], schemaOf<ClipboardItem>());
    while (opened.status == StoreStatus::busy) {
        opened = platform::openObjectStore(argv[1], schemaOf<ClipboardItem>());
    }
    if (!opened.store) {
        return EXIT_FAILURE;
    }
    ModelContext context(std::move(opened.store));
    Writer writer(context, argv[2]);
    const int first = writer.lastBatch() + 1;
    for (int batch = first; batch < first + std::stoi(argv[3]); ++batch) {
        if (!writer.save(batch)) {
            return EXIT_FAILURE;
        }
        tell(batch);
    }
    return EXIT_SUCCESS;
}

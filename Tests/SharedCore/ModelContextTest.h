// A context on a store of each kind, with both classes of records.
#pragma once

#include "SharedCore/Storage/ClipboardItem.h"
#include "SharedCore/Storage/DailyActivity.h"
#include "SharedCore/Storage/ModelContext.h"
#include "Tests/Platform/Objects/ObjectStorePlace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace sharedcore {

using ItemPointer = std::shared_ptr<ClipboardItem>;

inline ItemPointer newItem(const std::string &content)
{
    return std::make_shared<ClipboardItem>(content, std::nullopt);
}

inline std::vector<ItemPointer> itemsIn(ModelContext &context,
                                        const FetchDescriptor<ClipboardItem> &descriptor = {})
{
    auto fetched = context.fetch(descriptor);
    EXPECT_EQ(fetched.status, StoreStatus::done);
    return std::move(fetched.records);
}

// The contents, one after the other.
inline std::string contentsIn(ModelContext &context, const FetchDescriptor<ClipboardItem> &descriptor = {})
{
    std::string contents;
    for (const auto &item : itemsIn(context, descriptor)) {
        contents += item->content();
    }
    return contents;
}

class ModelContextTest : public testing::TestWithParam<testsupport::ObjectStoreKind>
{
protected:
    [[nodiscard]] std::shared_ptr<platform::ObjectStore> openStore()
    {
        auto opened = place_->open(schemaOf<ClipboardItem, DailyActivity>());
        EXPECT_EQ(opened.status, StoreStatus::done);
        return std::move(opened.store);
    }

    [[nodiscard]] std::unique_ptr<ModelContext> newContext()
    {
        return std::make_unique<ModelContext>(openStore());
    }

    // Saved items with these letters as their contents, each one second later than the one before.
    std::vector<ItemPointer> save(ModelContext &context, const std::string &letters)
    {
        std::vector<ItemPointer> items;
        for (const char letter : letters) {
            items.push_back(newItem(std::string(1, letter)));
            items.back()->setTimestamp(foundation::referenceDate + std::chrono::seconds(++seconds_));
            context.insert(items.back());
        }
        EXPECT_EQ(context.save(), StoreStatus::done);
        return items;
    }

private:
    std::unique_ptr<testsupport::ObjectStorePlace> place_ = GetParam().makePlace();
    int seconds_ = 0;
};

} // namespace sharedcore

#include "Tests/SharedCore/ModelContextTest.h"

namespace sharedcore {

namespace {

// On a store that fails on command.
class ModelContextFailureTest : public testing::Test
{
protected:
    [[nodiscard]] ModelContext newContext()
    {
        return ModelContext(
            fakes::openMemoryObjectStore(file_, schemaOf<ClipboardItem, DailyActivity>()).store);
    }

    void answer(StoreStatus status) { file_->answer = status; }
    [[nodiscard]] int saveCount() const { return file_->saveCount; }

private:
    std::shared_ptr<fakes::MemoryObjectFile> file_ = std::make_shared<fakes::MemoryObjectFile>();
};

constexpr std::array failures{StoreStatus::busy, StoreStatus::full, StoreStatus::refused, StoreStatus::newer,
                              StoreStatus::failed};

TEST_F(ModelContextFailureTest, KeepsAllChangesOfASaveThatFailsForAnotherTry)
{
    auto context = newContext();
    const auto changed = newItem("a");
    const auto removed = newItem("b");
    context.insert(changed);
    context.insert(removed);
    ASSERT_EQ(context.save(), StoreStatus::done);
    changed->setContent("x");
    context.remove(*removed);
    context.insert(newItem("c"));
    for (const auto failure : failures) {
        answer(failure);
        EXPECT_EQ(context.save(), failure);
        EXPECT_TRUE(context.hasChanges());
        EXPECT_FALSE(removed->isDeleted());
        answer(StoreStatus::done);
        EXPECT_EQ(contentsIn(context), "xc");
        auto other = newContext();
        EXPECT_EQ(contentsIn(other), "ab");
    }
    EXPECT_EQ(context.save(), StoreStatus::done);
    auto other = newContext();
    EXPECT_EQ(contentsIn(other), "xc");
}

TEST_F(ModelContextFailureTest, CanRollBackAfterASaveThatFailed)
{
    auto context = newContext();
    const auto item = newItem("a");
    context.insert(item);
    ASSERT_EQ(context.save(), StoreStatus::done);
    item->setContent("b");
    answer(StoreStatus::full);
    ASSERT_EQ(context.save(), StoreStatus::full);
    context.rollback();
    EXPECT_EQ(item->content(), "a");
    EXPECT_FALSE(context.hasChanges());
}

TEST_F(ModelContextFailureTest, SaysHowAFetchFailed)
{
    auto context = newContext();
    context.insert(newItem("a"));
    for (const auto failure : failures) {
        answer(failure);
        const auto fetched = context.fetch<ClipboardItem>();
        EXPECT_EQ(fetched.status, failure);
        EXPECT_TRUE(fetched.records.empty());
    }
}

TEST_F(ModelContextFailureTest, DoesNotAskTheStoreWhereThereIsNothingToSave)
{
    auto context = newContext();
    const auto item = newItem("a");
    context.insert(item);
    ASSERT_EQ(context.save(), StoreStatus::done);
    item->setContent("a");
    answer(StoreStatus::failed);
    EXPECT_EQ(context.save(), StoreStatus::done);
    EXPECT_EQ(saveCount(), 1);
}

} // namespace

} // namespace sharedcore

#include "Tests/SharedCore/ModelContextTest.h"

#include <cmath>

namespace sharedcore {

namespace {

INSTANTIATE_TEST_SUITE_P(Store, ModelContextTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

TEST_P(ModelContextTest, SavesNothingBeforeItIsTold)
{
    const auto context = newContext();
    const auto item = newItem("a");
    EXPECT_EQ(item->modelContext(), nullptr);
    context->insert(item);
    EXPECT_EQ(item->modelContext(), context.get());
    EXPECT_TRUE(context->hasChanges());
    EXPECT_EQ(contentsIn(*newContext()), "");
    EXPECT_EQ(context->save(), StoreStatus::done);
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(contentsIn(*newContext()), "a");
}

TEST_P(ModelContextTest, GivesBackAllPropertiesOfBothClasses)
{
    const auto item = std::make_shared<ClipboardItem>("text", "app");
    item->setIsPinned(true);
    const auto activity = std::make_shared<DailyActivity>();
    activity->setMouseDistance(1.25);
    activity->setKeystrokes(9'000'000'000'000'000'000);
    activity->setActiveTime(2.5);
    const auto writer = newContext();
    writer->insert(item);
    writer->insert(activity);
    ASSERT_EQ(writer->save(), StoreStatus::done);

    const auto reader = newContext();
    const auto items = itemsIn(*reader);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(*items.front(), *item);
    EXPECT_EQ(items.front()->content(), "text");
    EXPECT_EQ(items.front()->timestamp(), item->timestamp());
    EXPECT_EQ(items.front()->appSource(), "app");
    EXPECT_TRUE(items.front()->isPinned());
    const auto activities = reader->fetch<DailyActivity>();
    ASSERT_EQ(activities.records.size(), 1U);
    EXPECT_EQ(activities.records.front()->date(), activity->date());
    EXPECT_EQ(activities.records.front()->mouseDistance(), 1.25);
    EXPECT_EQ(activities.records.front()->keystrokes(), 9'000'000'000'000'000'000);
    EXPECT_EQ(activities.records.front()->activeTime(), 2.5);
}

TEST_P(ModelContextTest, KeepsTwoItemsWithTheSameContentApart)
{
    const auto context = newContext();
    save(*context, "aa");
    EXPECT_EQ(contentsIn(*newContext()), "aa");
}

TEST_P(ModelContextTest, GivesTheSameObjectForTheSameRow)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    EXPECT_EQ(itemsIn(*context).front(), item);
    const auto other = newContext();
    const auto fetched = itemsIn(*other).front();
    EXPECT_NE(fetched, item);
    EXPECT_EQ(itemsIn(*other).front(), fetched);
}

TEST_P(ModelContextTest, LetsGoOfRecordsThatNobodyHolds)
{
    const auto context = newContext();
    const std::weak_ptr<ClipboardItem> item = save(*context, "a").front();
    EXPECT_TRUE(item.expired());
    EXPECT_EQ(contentsIn(*context), "a");
}

TEST_P(ModelContextTest, HoldsRecordsWithChangesItself)
{
    const auto context = newContext();
    save(*context, "ab");
    itemsIn(*context)[0]->setContent("x");
    context->insert(newItem("c"));
    EXPECT_EQ(contentsIn(*context), "xbc");
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_EQ(contentsIn(*newContext()), "xbc");
}

TEST_P(ModelContextTest, SavesAChangedProperty)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    item->setIsPinned(true);
    EXPECT_TRUE(item->hasChanges());
    EXPECT_TRUE(context->hasChanges());
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_FALSE(item->hasChanges());
    EXPECT_TRUE(itemsIn(*newContext()).front()->isPinned());
}

TEST_P(ModelContextTest, TakesAPropertyThatIsWrittenBackForUnchanged)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    item->setIsPinned(true);
    item->setIsPinned(false);
    EXPECT_FALSE(item->hasChanges());
    EXPECT_FALSE(context->hasChanges());
}

TEST_P(ModelContextTest, DeletesARecordWithTheNextSave)
{
    const auto context = newContext();
    const auto items = save(*context, "ab");
    context->remove(*items[0]);
    EXPECT_EQ(contentsIn(*context), "b");
    EXPECT_EQ(contentsIn(*newContext()), "ab");
    EXPECT_FALSE(items[0]->isDeleted());
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_TRUE(items[0]->isDeleted());
    EXPECT_EQ(items[0]->modelContext(), nullptr);
    EXPECT_EQ(items[0]->content(), "a");
    EXPECT_EQ(contentsIn(*newContext()), "b");
}

TEST_P(ModelContextTest, ForgetsARecordThatIsDeletedBeforeItWasSaved)
{
    const auto context = newContext();
    const auto item = newItem("a");
    context->insert(item);
    context->remove(*item);
    EXPECT_EQ(item->modelContext(), nullptr);
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(contentsIn(*context), "");
}

TEST_P(ModelContextTest, KeepsARecordThatIsInsertedAgainBeforeItsDeletionIsSaved)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    item->setContent("b");
    context->remove(*item);
    context->insert(item);
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_EQ(contentsIn(*newContext()), "b");
}

TEST_P(ModelContextTest, InsertsARecordAgainThatWasDeleted)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    context->remove(*item);
    ASSERT_EQ(context->save(), StoreStatus::done);
    context->insert(item);
    EXPECT_FALSE(item->isDeleted());
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_EQ(*itemsIn(*newContext()).front(), *item);
}

TEST_P(ModelContextTest, InsertsARecordOnce)
{
    const auto context = newContext();
    const auto item = newItem("a");
    context->insert(item);
    context->insert(item);
    ASSERT_EQ(context->save(), StoreStatus::done);
    context->insert(item);
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(contentsIn(*newContext()), "a");
}

TEST_P(ModelContextTest, LeavesRecordsOfOthersAloneWhereTheyAreToBeDeleted)
{
    const auto context = newContext();
    const auto other = newContext();
    const auto item = save(*other, "a").front();
    context->remove(*item);
    context->remove(*newItem("b"));
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(item->modelContext(), other.get());
}

TEST_P(ModelContextTest, RollsBackValuesDeletionsAndInsertions)
{
    const auto context = newContext();
    const auto items = save(*context, "ab");
    const auto inserted = newItem("c");
    std::string told;
    const auto observation =
        observe(*items[0], &ClipboardItem::content,
                {[&] { told += "<" + items[0]->content(); }, [&] { told += ">" + items[0]->content(); }});
    items[0]->setContent("x");
    items[1]->setIsPinned(true);
    context->remove(*items[1]);
    context->insert(inserted);
    told.clear();
    context->rollback();
    EXPECT_EQ(told, "<x>a");
    EXPECT_FALSE(context->hasChanges());
    EXPECT_FALSE(items[1]->isPinned());
    EXPECT_EQ(inserted->modelContext(), nullptr);
    EXPECT_EQ(inserted->content(), "c");
    EXPECT_EQ(contentsIn(*context), "ab");
    items[1]->setContent("y");
    ASSERT_EQ(context->save(), StoreStatus::done);
    EXPECT_EQ(contentsIn(*newContext()), "ay");
}

TEST_P(ModelContextTest, SavesNothingOfASaveWithANumberThatIsNone)
{
    const auto context = newContext();
    const auto activity = std::make_shared<DailyActivity>();
    activity->setActiveTime(std::nan(""));
    context->insert(activity);
    context->insert(newItem("a"));
    EXPECT_EQ(context->save(), StoreStatus::invalid);
    EXPECT_EQ(contentsIn(*newContext()), "");
    activity->setActiveTime(1);
    EXPECT_EQ(context->save(), StoreStatus::done);
    EXPECT_EQ(contentsIn(*newContext()), "a");
}

TEST_P(ModelContextTest, LetsRecordsStandAloneWhenItEnds)
{
    auto context = newContext();
    const auto item = save(*context, "a").front();
    item->setContent("b");
    context.reset();
    EXPECT_EQ(item->modelContext(), nullptr);
    EXPECT_EQ(item->content(), "b");
    item->setContent("c");
    EXPECT_EQ(contentsIn(*newContext()), "a");
}

using ModelContextDeathTest = ModelContextTest;

INSTANTIATE_TEST_SUITE_P(Store, ModelContextDeathTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

TEST_P(ModelContextDeathTest, TakesNoRecordOfAnotherContext)
{
    const auto context = newContext();
    const auto item = save(*newContext(), "a");
    const auto other = newContext();
    const auto fetched = itemsIn(*other).front();
    EXPECT_DEATH(context->insert(fetched), "Fatal error: A record that belongs to a context");
}

TEST_P(ModelContextDeathTest, TakesNoRecordOfAClassThatIsNotRegistered)
{
    const auto file = std::make_shared<fakes::MemoryObjectFile>();
    ModelContext context(fakes::openMemoryObjectStore(file, schemaOf<DailyActivity>()).store);
    EXPECT_DEATH(context.insert(newItem("a")), "Fatal error: A record was inserted whose class is not");
    EXPECT_EQ(context.fetch<ClipboardItem>().status, StoreStatus::invalid);
}

} // namespace

} // namespace sharedcore

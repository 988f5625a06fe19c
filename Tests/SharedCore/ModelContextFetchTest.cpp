#include "Tests/SharedCore/ModelContextTest.h"

namespace sharedcore {

namespace {

using ModelContextFetchTest = ModelContextTest;

INSTANTIATE_TEST_SUITE_P(Store, ModelContextFetchTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

FetchDescriptor<ClipboardItem> newest(std::size_t count)
{
    return FetchDescriptor<ClipboardItem>()
        .sortedBy(&ClipboardItem::timestamp, SortOrder::reverse)
        .limitedTo(count);
}

FetchDescriptor<ClipboardItem> pinned()
{
    return FetchDescriptor<ClipboardItem>().where(&ClipboardItem::isPinned, Comparison::equal, true);
}

TEST_P(ModelContextFetchTest, GivesTheNewestFirst)
{
    const auto context = newContext();
    save(*context, "abcde");
    EXPECT_EQ(contentsIn(*newContext(), newest(3)), "edc");
}

TEST_P(ModelContextFetchTest, GivesThoseForWhichAllConditionsHold)
{
    const auto context = newContext();
    const auto items = save(*context, "abcd");
    for (const auto place : {0, 2, 3}) {
        items[static_cast<std::size_t>(place)]->setIsPinned(true);
    }
    items[2]->setAppSource("app");
    ASSERT_EQ(context->save(), StoreStatus::done);
    const auto reader = newContext();
    EXPECT_EQ(contentsIn(*reader, pinned()), "acd");
    EXPECT_EQ(contentsIn(*reader, pinned().where(&ClipboardItem::appSource, Comparison::equal, std::nullopt)),
              "ad");
    EXPECT_EQ(contentsIn(*reader, pinned().where(&ClipboardItem::content, Comparison::contains, "c")), "c");
    EXPECT_EQ(
        contentsIn(*reader, pinned().sortedBy(&ClipboardItem::content, SortOrder::reverse).limitedTo(2)),
        "dc");
}

TEST_P(ModelContextFetchTest, SeesWhatIsNotSavedYet)
{
    const auto context = newContext();
    const auto items = save(*context, "abcde");
    items[0]->setTimestamp(foundation::referenceDate + std::chrono::hours(1));
    items[1]->setIsPinned(true);
    items[4]->setContent("x");
    context->remove(*items[3]);
    const auto inserted = newItem("n");
    inserted->setIsPinned(true);
    inserted->setTimestamp(foundation::referenceDate + std::chrono::hours(2));
    context->insert(inserted);
    EXPECT_EQ(contentsIn(*context, newest(3)), "nax");
    EXPECT_EQ(contentsIn(*context, newest(9)), "naxcb");
    EXPECT_EQ(contentsIn(*context, pinned()), "bn");
    EXPECT_EQ(contentsIn(*context, FetchDescriptor<ClipboardItem>().where(&ClipboardItem::content,
                                                                          Comparison::equal, "e")),
              "");
    EXPECT_EQ(contentsIn(*newContext(), newest(9)), "edcba");
}

TEST_P(ModelContextFetchTest, FillsTheLimitAlsoWhereMuchWasDeleted)
{
    const auto context = newContext();
    const auto items = save(*context, "abcdefgh");
    for (std::size_t place = 3; place < items.size(); ++place) {
        context->remove(*items[place]);
    }
    EXPECT_EQ(contentsIn(*context, newest(2)), "cb");
}

TEST_P(ModelContextFetchTest, GivesEachClassItsOwnRecords)
{
    const auto context = newContext();
    save(*context, "a");
    context->insert(std::make_shared<DailyActivity>());
    context->insert(newItem("b"));
    EXPECT_EQ(context->fetch<DailyActivity>().records.size(), 1U);
    EXPECT_EQ(contentsIn(*context), "ab");
}

TEST_P(ModelContextFetchTest, TakesOverWhatOthersHaveSavedAndTellsObservers)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    const auto other = newContext();
    itemsIn(*other).front()->setContent("b");
    ASSERT_EQ(other->save(), StoreStatus::done);
    std::string told;
    const auto observation =
        observe(*item, &ClipboardItem::content,
                {[&] { told += "<" + item->content(); }, [&] { told += ">" + item->content(); }});
    const auto pinning = observe(*item, &ClipboardItem::isPinned, {[] { FAIL(); }, {}});
    EXPECT_EQ(item->content(), "a");
    EXPECT_EQ(itemsIn(*context).front()->content(), "b");
    EXPECT_EQ(told, "<a>b");
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(contentsIn(*context), "b");
    EXPECT_EQ(told, "<a>b");
}

TEST_P(ModelContextFetchTest, KeepsUnsavedPropertiesAndTakesOverTheOthers)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    const auto other = newContext();
    const auto theirs = itemsIn(*other).front();
    theirs->setContent("theirs");
    theirs->setAppSource("app");
    ASSERT_EQ(other->save(), StoreStatus::done);
    item->setContent("mine");
    itemsIn(*context);
    EXPECT_EQ(item->content(), "mine");
    EXPECT_EQ(item->appSource(), "app");
    context->rollback();
    EXPECT_EQ(item->content(), "theirs");
}

TEST_P(ModelContextFetchTest, KeepsThePropertiesThatTwoContextsChanged)
{
    const auto context = newContext();
    const auto item = save(*context, "a").front();
    const auto other = newContext();
    itemsIn(*other).front()->setIsPinned(true);
    item->setContent("b");
    ASSERT_EQ(other->save(), StoreStatus::done);
    ASSERT_EQ(context->save(), StoreStatus::done);
    const auto result = itemsIn(*newContext()).front();
    EXPECT_EQ(result->content(), "b");
    EXPECT_TRUE(result->isPinned());
}

TEST_P(ModelContextFetchTest, LetsADeletionByAnotherStand)
{
    const auto context = newContext();
    const auto items = save(*context, "ab");
    const auto other = newContext();
    other->remove(*itemsIn(*other)[0]);
    ASSERT_EQ(other->save(), StoreStatus::done);
    items[0]->setContent("x");
    items[1]->setContent("y");
    EXPECT_EQ(context->save(), StoreStatus::done);
    EXPECT_TRUE(items[0]->isDeleted());
    EXPECT_EQ(items[0]->modelContext(), nullptr);
    EXPECT_FALSE(items[1]->isDeleted());
    EXPECT_FALSE(context->hasChanges());
    EXPECT_EQ(contentsIn(*newContext()), "y");
}

TEST_P(ModelContextFetchTest, LetsAnObserverFetchAndWriteWhileItFetches)
{
    const auto context = newContext();
    const auto items = save(*context, "ab");
    const auto other = newContext();
    itemsIn(*other)[0]->setContent("x");
    ASSERT_EQ(other->save(), StoreStatus::done);
    const auto observation = observe(*items[0], &ClipboardItem::content, {{}, [&] {
                                                                              items[1]->setContent("y");
                                                                              itemsIn(*context);
                                                                          }});
    EXPECT_EQ(contentsIn(*context), "xy");
    EXPECT_TRUE(context->hasChanges());
}

} // namespace

} // namespace sharedcore

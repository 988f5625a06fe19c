#include "Tests/Platform/Objects/ObjectStoreTest.h"

#include <cmath>
#include <limits>

namespace platform {

namespace {

INSTANTIATE_TEST_SUITE_P(Store, ObjectStoreTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

template <class Number> using Limits = std::numeric_limits<Number>;

TEST_P(ObjectStoreTest, BeginsEmpty)
{
    EXPECT_TRUE(rowsIn(*open()).empty());
}

TEST_P(ObjectStoreTest, GivesBackEachValueAsItWasSaved)
{
    using namespace std::string_literals;
    const auto moment = foundation::referenceDate + std::chrono::days(9000) + std::chrono::microseconds(1);
    const std::vector<ObjectRow> rows{
        {keyOf(1), {""s, Limits<std::int64_t>::max(), Limits<double>::infinity(), true, moment, {}}},
        {keyOf(2),
         {"a\0b"s, Limits<std::int64_t>::min(), Limits<double>::denorm_min(), false,
          foundation::referenceDate - std::chrono::days(9000), ""s}},
        {keyOf(3),
         {"\xFF\xC0 ' \" ; é 🙂"s, std::int64_t{0}, -Limits<double>::max(), false, moment,
          std::string(100'000, 'x')}},
    };
    const auto store = open();
    EXPECT_EQ(store->save(insertionOf(rows)).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), rows);
}

TEST_P(ObjectStoreTest, KeepsWhatWasSavedForTheNextOpening)
{
    ASSERT_EQ(open()->save(insertionOf({note(1), note(2)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*open()), (std::vector{note(1), note(2)}));
}

TEST_P(ObjectStoreTest, UpdatesOnlyTheColumnsThatAreNamed)
{
    const auto store = open();
    const auto other = open();
    ASSERT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    ASSERT_EQ(store->save({{}, {{0, keyOf(1), {{countPlace, std::int64_t{5}}}}}, {}}).status,
              StoreStatus::done);
    ASSERT_EQ(other->save({{}, {{0, keyOf(1), {{textPlace, std::string("new")}}}}, {}}).status,
              StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), std::vector{note(1, "new", 5)});
}

TEST_P(ObjectStoreTest, TellsWhichRowsToUpdateAreMissing)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    const std::vector<std::pair<std::size_t, ColumnValue>> values{{countPlace, std::int64_t{5}}};
    const auto result = store->save({{}, {{0, keyOf(1), values}, {0, keyOf(2), values}}, {}});
    EXPECT_EQ(result.status, StoreStatus::done);
    EXPECT_EQ(result.missing, std::vector{keyOf(2)});
    EXPECT_EQ(rowsIn(*store), std::vector{note(1, "text", 5)});
}

TEST_P(ObjectStoreTest, DeletesRowsAndTakesMissingOnesForDeleted)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1), note(2)})).status, StoreStatus::done);
    EXPECT_EQ(store->save({{}, {}, {{0, keyOf(1)}, {0, keyOf(9)}}}).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), std::vector{note(2)});
}

TEST_P(ObjectStoreTest, ReplacesARowThatIsInsertedAgain)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1, "first")})).status, StoreStatus::done);
    EXPECT_EQ(store->save(insertionOf({note(1, "again"), note(2)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), (std::vector{note(1, "again"), note(2)}));
}

TEST_P(ObjectStoreTest, ShowsEachStoreWhatOthersSaved)
{
    const auto one = open();
    const auto other = open();
    ASSERT_EQ(one->save(insertionOf({note(1)})).status, StoreStatus::done);
    ASSERT_EQ(other->save(insertionOf({note(2)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*one), (std::vector{note(1), note(2)}));
    EXPECT_EQ(rowsIn(*other), (std::vector{note(1), note(2)}));
}

TEST_P(ObjectStoreTest, TouchesNothingForAChangeThatMakesNoSense)
{
    const auto with = [](std::size_t place, ColumnValue value) {
        auto row = note(2);
        row.values[place] = std::move(value);
        return row;
    };
    auto tooShort = note(2);
    tooShort.values.pop_back();
    const auto store = open();
    for (const auto &row : {with(weightPlace, std::nan("")), with(textPlace, {}), with(countPlace, 1.0),
                            with(isOpenPlace, std::int64_t{1}), with(authorPlace, true), tooShort,
                            with(textPlace, std::string(longestText + 1, 'x'))}) {
        EXPECT_EQ(store->save(insertionOf({note(1), row})).status, StoreStatus::invalid);
    }
    EXPECT_EQ(store->save({{{1, note(1)}}, {}, {}}).status, StoreStatus::invalid);
    EXPECT_EQ(store->save({{{0, note(1)}}, {{0, keyOf(1), {{6, {}}}}}, {}}).status, StoreStatus::invalid);
    EXPECT_EQ(store->save({{{0, note(1)}}, {}, {{1, keyOf(1)}}}).status, StoreStatus::invalid);
    EXPECT_TRUE(rowsIn(*store).empty());
}

} // namespace

} // namespace platform

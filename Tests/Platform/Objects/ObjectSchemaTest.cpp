#include "Tests/Platform/Objects/ObjectStoreTest.h"

#include <cmath>

namespace platform {

namespace {

using namespace std::string_literals;

// The schema before the columns after the first `columnCount` came.
ObjectSchema olderSchema(std::size_t columnCount, std::int32_t version = 1)
{
    auto schema = noteSchema(version);
    schema.entities.front().columns.resize(columnCount);
    return schema;
}

ObjectRow olderNote(std::size_t columnCount)
{
    auto row = note(1, "old");
    row.values.resize(columnCount);
    return row;
}

class ObjectSchemaTest : public ObjectStoreTest
{
protected:
    void saveOlderNote(std::size_t columnCount)
    {
        EXPECT_EQ(open(olderSchema(columnCount))->save(insertionOf({olderNote(columnCount)})).status,
                  StoreStatus::done);
    }
};

INSTANTIATE_TEST_SUITE_P(Store, ObjectSchemaTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

TEST_P(ObjectSchemaTest, FillsColumnsThatAnOlderStoreLacks)
{
    saveOlderNote(1);
    auto schema = noteSchema(2);
    auto &columns = schema.entities.front().columns;
    columns[countPlace].initialValue = std::int64_t{42};
    columns[isOpenPlace].initialValue = true;
    columns[authorPlace].initialValue = "somebody's \"'\0 name"s;
    const auto store = open(schema);
    const ObjectRow filled{
        keyOf(1), {"old"s, std::int64_t{42}, 0.0, true, foundation::referenceDate, "somebody's \"'\0 name"s}};
    EXPECT_EQ(rowsIn(*store), std::vector{filled});
    ASSERT_EQ(store->save(insertionOf({note(2)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*open(schema)), (std::vector{filled, note(2)}));
}

TEST_P(ObjectSchemaTest, FillsColumnsAlsoWhereTheVersionIsTheSame)
{
    saveOlderNote(5);
    EXPECT_EQ(rowsIn(*open()), std::vector{note(1, "old")});
}

TEST_P(ObjectSchemaTest, FillsAnOptionalColumnWithNothing)
{
    saveOlderNote(5);
    EXPECT_EQ(rowsIn(*open(noteSchema(2))).front().values[authorPlace], ColumnValue());
}

TEST_P(ObjectSchemaTest, MakesTablesThatAnOlderStoreLacks)
{
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    auto schema = noteSchema(2);
    schema.entities.insert(schema.entities.begin(), Entity{"Other", noteEntity().columns});
    const auto store = open(schema);
    EXPECT_TRUE(rowsIn(*store, {0, {}, {}, {}}).empty());
    EXPECT_EQ(rowsIn(*store, {1, {}, {}, {}}), std::vector{note(1)});
}

TEST_P(ObjectSchemaTest, LeavesOtherTablesAlone)
{
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    EXPECT_TRUE(rowsIn(*open({1, {{"Other", noteEntity().columns}}})).empty());
    EXPECT_EQ(rowsIn(*open()), std::vector{note(1)});
}

TEST_P(ObjectSchemaTest, RefusesAStoreOfANewerVersion)
{
    ASSERT_EQ(open(noteSchema(3))->save(insertionOf({note(1)})).status, StoreStatus::done);
    EXPECT_EQ(statusOfOpening(noteSchema(2)), StoreStatus::newer);
    EXPECT_EQ(rowsIn(*open(noteSchema(3))), std::vector{note(1)});
}

TEST_P(ObjectSchemaTest, RefusesAStoreWithAColumnThatItDoesNotKnow)
{
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    EXPECT_EQ(statusOfOpening(olderSchema(5)), StoreStatus::newer);
    EXPECT_EQ(rowsIn(*open()), std::vector{note(1)});
}

TEST_P(ObjectSchemaTest, SavesNothingMoreOnceAnotherProgramHasMadeTheStoreNewer)
{
    const auto older = open(olderSchema(5, 1));
    const auto newer = open(noteSchema(2));
    ASSERT_EQ(newer->save(insertionOf({note(2)})).status, StoreStatus::done);
    EXPECT_EQ(older->save(insertionOf({olderNote(5)})).status, StoreStatus::newer);
    EXPECT_EQ(rowsIn(*newer), std::vector{note(2)});
}

TEST_P(ObjectSchemaTest, RefusesATableWhoseColumnsAreOthers)
{
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    auto schema = noteSchema(2);
    schema.entities.front().columns[textPlace] = {"text", ColumnType::wholeNumber, false, std::int64_t{0}};
    EXPECT_EQ(statusOfOpening(schema), StoreStatus::mismatched);
    schema.entities.front().columns[textPlace] = {"text", ColumnType::text, true, {}};
    EXPECT_EQ(statusOfOpening(schema), StoreStatus::mismatched);
    EXPECT_EQ(rowsIn(*open(noteSchema(1))), std::vector{note(1)});
}

TEST_P(ObjectSchemaTest, TakesNamesOfAnyLetters)
{
    const ObjectSchema schema{1,
                              {{"a \"table\" of 'mine'; --",
                                {{"select", ColumnType::text, false, ""s},
                                 {"x\"y", ColumnType::date, true, {}},
                                 {"größe", ColumnType::boolean, false, false}}}}};
    const auto store = open(schema);
    const ObjectRow row{keyOf(1), {"text"s, foundation::referenceDate, true}};
    ASSERT_EQ(store->save(insertionOf({row})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*open(schema), {0, {{1, Comparison::notEqual, {}}}, {{1, true}}, 5}), std::vector{row});
}

TEST_P(ObjectSchemaTest, RefusesASchemaThatMakesNoSense)
{
    const Column column{"text", ColumnType::text, false, ""s};
    const std::vector<ObjectSchema> schemas{
        {0, {noteEntity()}},
        {1, {}},
        {1, {{"", {column}}}},
        {1, {{"Note\0"s, {column}}}},
        {1, {{"Note", {}}}},
        {1, {{"Note", {column}}, {"note", {column}}}},
        {1, {{"Note", {column, {"TEXT", ColumnType::text, true, {}}}}}},
        {1, {{"Note", {{"persistentIdentifier", ColumnType::text, true, {}}}}}},
        {1, {{"Note", {{"text", ColumnType::text, false, {}}}}}},
        {1, {{"Note", {{"text", ColumnType::text, false, true}}}}},
        {1, {{"Note", {{"weight", ColumnType::number, true, std::nan("")}}}}},
    };
    for (const auto &schema : schemas) {
        EXPECT_EQ(statusOfOpening(schema), StoreStatus::invalid);
    }
}

} // namespace

} // namespace platform

#include "Tests/Platform/Objects/ObjectStoreTest.h"

#include <cmath>

namespace platform {

namespace {

// Notes with the texts a to e, three of them with an author.
class ObjectQueryTest : public ObjectStoreTest
{
protected:
    ObjectQueryTest()
    {
        using namespace std::string_literals;
        EXPECT_EQ(store_
                      ->save(insertionOf({note(1, "a", 3, "Bob"s), note(2, "b", -1), note(3, "c", 7, "ann"s),
                                          note(4, "d", 3), note(5, "e", 3, "Ann Bobson"s)}))
                      .status,
                  StoreStatus::done);
    }

    std::string where(std::size_t column, Comparison comparison, ColumnValue value)
    {
        return texts({0, {{column, comparison, std::move(value)}}, {}, {}});
    }

    std::string ordered(std::vector<Ordering> orderings, std::optional<std::size_t> limit = {})
    {
        return texts({0, {}, std::move(orderings), limit});
    }

    std::string texts(const ObjectQuery &query) { return textsIn(*store_, query); }

    StoreStatus statusOf(const ObjectQuery &query) { return store_->fetch(query).status; }

private:
    std::unique_ptr<ObjectStore> store_ = open();
};

INSTANTIATE_TEST_SUITE_P(Store, ObjectQueryTest, testing::ValuesIn(testsupport::allObjectStoreKinds()),
                         testing::PrintToStringParamName());

using namespace std::string_literals;

TEST_P(ObjectQueryTest, ComparesNumbers)
{
    const auto count = [this](Comparison comparison) {
        return where(countPlace, comparison, std::int64_t{3});
    };
    EXPECT_EQ(count(Comparison::equal), "ade");
    EXPECT_EQ(count(Comparison::notEqual), "bc");
    EXPECT_EQ(count(Comparison::less), "b");
    EXPECT_EQ(count(Comparison::lessOrEqual), "abde");
    EXPECT_EQ(count(Comparison::greater), "c");
    EXPECT_EQ(count(Comparison::greaterOrEqual), "acde");
}

TEST_P(ObjectQueryTest, ComparesTextsByteByByte)
{
    EXPECT_EQ(where(authorPlace, Comparison::equal, "Bob"s), "a");
    EXPECT_EQ(where(authorPlace, Comparison::less, "a"s), "ae");
    EXPECT_EQ(where(authorPlace, Comparison::contains, "Bob"s), "ae");
    EXPECT_EQ(where(authorPlace, Comparison::contains, ""s), "ace");
    EXPECT_EQ(where(authorPlace, Comparison::contains, "%"s), "");
}

TEST_P(ObjectQueryTest, ComparesDatesAndBooleans)
{
    const auto third = foundation::referenceDate + std::chrono::seconds(3);
    EXPECT_EQ(where(datePlace, Comparison::greater, third), "de");
    EXPECT_EQ(where(datePlace, Comparison::equal, third), "c");
    EXPECT_EQ(where(isOpenPlace, Comparison::equal, true), "abcde");
    EXPECT_EQ(where(isOpenPlace, Comparison::equal, false), "");
}

TEST_P(ObjectQueryTest, HoldsAnAbsentValueForEqualToAnAbsentOneOnly)
{
    EXPECT_EQ(where(authorPlace, Comparison::equal, {}), "bd");
    EXPECT_EQ(where(authorPlace, Comparison::notEqual, {}), "ace");
    EXPECT_EQ(where(authorPlace, Comparison::notEqual, "Bob"s), "bcde");
    EXPECT_EQ(where(authorPlace, Comparison::less, "zzz"s), "ace");
    EXPECT_EQ(where(authorPlace, Comparison::less, {}), "");
    EXPECT_EQ(where(authorPlace, Comparison::greaterOrEqual, {}), "");
}

TEST_P(ObjectQueryTest, WantsAllConditionsToHold)
{
    EXPECT_EQ(texts({0,
                     {{countPlace, Comparison::equal, std::int64_t{3}},
                      {authorPlace, Comparison::notEqual, {}},
                      {textPlace, Comparison::greater, "a"s}},
                     {},
                     {}}),
              "e");
}

TEST_P(ObjectQueryTest, OrdersByEachOrderingInTurnAndThenByKey)
{
    EXPECT_EQ(ordered({}), "abcde");
    EXPECT_EQ(ordered({{datePlace, true}}), "edcba");
    EXPECT_EQ(ordered({{countPlace, false}}), "badec");
    EXPECT_EQ(ordered({{countPlace, true}}), "cedab");
    EXPECT_EQ(ordered({{countPlace, true}, {textPlace, false}}), "cadeb");
    EXPECT_EQ(ordered({{authorPlace, false}}), "bdeac");
    EXPECT_EQ(ordered({{authorPlace, true}}), "caedb");
}

TEST_P(ObjectQueryTest, GivesNoMoreThanTheLimit)
{
    EXPECT_EQ(ordered({{datePlace, true}}, 2), "ed");
    EXPECT_EQ(ordered({{datePlace, true}}, 0), "");
    EXPECT_EQ(ordered({}, 5), "abcde");
    EXPECT_EQ(ordered({}, SIZE_MAX), "abcde");
}

TEST_P(ObjectQueryTest, RefusesAQueryThatMakesNoSense)
{
    EXPECT_EQ(statusOf({1, {}, {}, {}}), StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {{6, Comparison::equal, {}}}, {}, {}}), StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {{countPlace, Comparison::equal, "3"s}}, {}, {}}), StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {{weightPlace, Comparison::equal, std::nan("")}}, {}, {}}), StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {{countPlace, Comparison::contains, std::int64_t{3}}}, {}, {}}),
              StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {{textPlace, Comparison::contains, {}}}, {}, {}}), StoreStatus::invalid);
    EXPECT_EQ(statusOf({0, {}, {{6, false}}, {}}), StoreStatus::invalid);
}

} // namespace

} // namespace platform

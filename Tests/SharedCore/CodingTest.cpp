#include "Tests/SharedCore/StorageTest.h"

#include <limits>

namespace sharedcore {

namespace {

using namespace std::string_literals;
using Number = std::numeric_limits<std::int64_t>;

using CodingTest = StorageTest;

TEST_F(CodingTest, GivesSingleValuesBack)
{
    EXPECT_EQ(encoded(true), "true");
    EXPECT_EQ(encoded(Number::min()), "-9223372036854775808");
    EXPECT_EQ(encoded("a\"\xC3\xA4\n\0"s), "\"a\\\"\xC3\xA4\\n\\u0000\"");
    EXPECT_EQ(decoded<bool>("false"), false);
    EXPECT_EQ(decoded<std::int64_t>("-9223372036854775808"), Number::min());
    EXPECT_EQ(decoded<std::int64_t>("9223372036854775807"), Number::max());
    EXPECT_EQ(decoded<std::string>("\"a\\u0000\\ud83d\\udc9a\""), "a\0\xF0\x9F\x92\x9A"s);
}

TEST_F(CodingTest, TakesNoNumberForABoolean)
{
    for (const auto *json : {"0", "1", "1.0", "\"true\"", "null", "[true]", "{}"}) {
        EXPECT_EQ(decoded<bool>(json), std::nullopt) << json;
    }
}

TEST_F(CodingTest, TakesNoFractionNorAnythingBeyond64BitsForAWholeNumber)
{
    for (const auto *json :
         {"1.5", "9223372036854775808", "-9223372036854775809", "18446744073709551616", "1e400",
          "9007199254740994.0", "1e19", "true", "\"1\"", "null", "[1]", "0x1", "01", "+1"}) {
        EXPECT_EQ(decoded<std::int64_t>(json), std::nullopt) << json;
    }
}

TEST_F(CodingTest, TakesAWholeNumberInEveryNotation)
{
    EXPECT_EQ(decoded<std::int64_t>("-0"), 0);
    EXPECT_EQ(decoded<std::int64_t>("3.0"), 3);
    EXPECT_EQ(decoded<std::int64_t>("1e3"), 1000);
    EXPECT_EQ(decoded<std::int64_t>(" 7 "), 7);
}

TEST_F(CodingTest, TakesSmallerNumbersOnlyWhereTheyFit)
{
    EXPECT_EQ(decoded<std::uint8_t>("255"), std::uint8_t{255});
    EXPECT_EQ(decoded<std::uint8_t>("256"), std::nullopt);
    EXPECT_EQ(decoded<std::uint8_t>("-1"), std::nullopt);
    EXPECT_EQ(encoded(std::numeric_limits<std::uint64_t>::max()), "(nothing)");
}

TEST_F(CodingTest, GivesEveryDoubleBackToTheLastBit)
{
    using Double = std::numeric_limits<double>;
    for (const double value :
         {0.0, -0.0, 0.1, 1.0 / 3, 1e23, Double::max(), Double::min(), Double::denorm_min()}) {
        EXPECT_EQ(std::bit_cast<std::uint64_t>(decoded<double>(encoded(value)).value_or(7)),
                  std::bit_cast<std::uint64_t>(value));
    }
    EXPECT_EQ(decoded<double>("1"), 1.0);
    EXPECT_EQ(decoded<double>("true"), std::nullopt);
    EXPECT_EQ(decoded<double>("\"1\""), std::nullopt);
    EXPECT_EQ(decoded<double>("NaN"), std::nullopt);
    EXPECT_EQ(decoded<double>("1e400"), std::nullopt);
}

TEST_F(CodingTest, CountsDatesInSecondsSince2001)
{
    using std::chrono::microseconds;
    const auto date = foundation::referenceDate + microseconds(750'123'456'789'012);
    EXPECT_EQ(encoded(foundation::referenceDate), "0.0");
    EXPECT_EQ(encoded(date), "750123456.789012");
    EXPECT_EQ(decoded<foundation::Date>("750123456.789012"), date);
    EXPECT_EQ(decoded<foundation::Date>("-1"), foundation::referenceDate - std::chrono::seconds(1));
    EXPECT_EQ(decoded<foundation::Date>("1e300"), std::nullopt);
    EXPECT_EQ(decoded<foundation::Date>("\"2001-01-01\""), std::nullopt);
    for (const auto farthest : {foundation::Date::min(), foundation::Date::max()}) {
        const auto text = encoded(farthest);
        EXPECT_TRUE(text == "(nothing)" || decoded<foundation::Date>(text)) << text;
    }
}

TEST_F(CodingTest, TakesListsAndMapsOfOneTypeOnly)
{
    using List = std::vector<std::int64_t>;
    using Map = std::map<std::string, std::int64_t>;
    EXPECT_EQ(encoded(List{1, 2}), "[1,2]");
    EXPECT_EQ(decoded<List>("[]"), List());
    EXPECT_EQ(decoded<List>("[1,2]"), (List{1, 2}));
    EXPECT_EQ(decoded<List>("[1,\"2\"]"), std::nullopt);
    EXPECT_EQ(decoded<List>("{}"), std::nullopt);
    EXPECT_EQ(decoded<Map>("{\"\":1,\"\\u0000\":2}"), (Map{{"", 1}, {"\0"s, 2}}));
    EXPECT_EQ(decoded<Map>("{\"a\":null}"), std::nullopt);
    EXPECT_EQ(decoded<Map>("[]"), std::nullopt);
}

TEST_F(CodingTest, TakesNothingButOneJsonValue)
{
    for (const auto *json :
         {"", " ", "{", "{}}", "{} x", "{}{}", "{\"a\":1,}", "{a:1}", "{'a':1}", "[1,]", "// c\n{}",
          "{}\n# c", "\xFF", "\"\xC3\"", "\"\\ud800\"", "\"\n\"", "nul", "{\"a\"}"}) {
        EXPECT_EQ((decoded<std::map<std::string, std::int64_t>>(json)), std::nullopt) << json;
        EXPECT_EQ(decoded<std::string>(json), std::nullopt) << json;
        EXPECT_EQ(decoded<std::vector<bool>>(json), std::nullopt) << json;
    }
}

TEST_F(CodingTest, TakesNoObjectThatHasAKeyTwice)
{
    EXPECT_EQ((decoded<std::map<std::string, std::int64_t>>("{\"a\":1,\"a\":1}")), std::nullopt);
    EXPECT_EQ((decoded<std::map<std::string, std::int64_t>>("{\"a\":1,\"\\u0061\":2}")), std::nullopt);
}

TEST_F(CodingTest, IsNotOverwhelmedByDepth)
{
    for (const auto *part : {"[", "{\"a\":", "[{\"a\":"}) {
        std::string bomb;
        for (int level = 0; level < 1'000'000; ++level) {
            bomb += part;
        }
        EXPECT_EQ(decoded<std::int64_t>(bomb), std::nullopt);
    }
    EXPECT_EQ(decoded<std::int64_t>(std::string(deepestJson, '[') + std::string(deepestJson, ']')),
              std::nullopt);
}

struct Point
{
    std::int64_t x = 0;
    std::optional<std::int64_t> y;
    std::vector<std::optional<bool>> flags;

    bool operator==(const Point &) const = default;
    static constexpr auto fields()
    {
        return std::tuple{Field{"x", &Point::x}, Field{"y", &Point::y}, Field{"flags", &Point::flags}};
    }
};

TEST_F(CodingTest, LeavesAbsentValuesOfARecordOut)
{
    EXPECT_EQ(encoded(Point{}), "{\"flags\":[],\"x\":0}");
    EXPECT_EQ(encoded(Point{1, 2, {true, std::nullopt}}), "{\"flags\":[true,null],\"x\":1,\"y\":2}");
    EXPECT_EQ(decoded<Point>("{\"flags\":[true,null],\"x\":1,\"y\":2}"), (Point{1, 2, {true, std::nullopt}}));
    EXPECT_EQ(decoded<Point>("{\"flags\":[],\"x\":1}"), (Point{1, {}, {}}));
    EXPECT_EQ(decoded<Point>("{\"flags\":[],\"x\":1,\"y\":null}"), (Point{1, {}, {}}));
    EXPECT_EQ(decoded<Point>("{\"flags\":[],\"x\":1,\"y\":\"2\"}"), std::nullopt);
    EXPECT_EQ(decoded<Point>("{\"flags\":[],\"x\":null}"), std::nullopt);
    EXPECT_EQ(decoded<Point>("[1]"), std::nullopt);
}

TEST_F(CodingTest, TakesRecordsInsideRecords)
{
    using Points = std::map<std::string, std::vector<Point>>;
    const Points points{{"a", {Point{1, {}, {}}, Point{2, 3, {false}}}}};
    EXPECT_EQ(decoded<Points>(encoded(points)), points);
}

} // namespace

} // namespace sharedcore

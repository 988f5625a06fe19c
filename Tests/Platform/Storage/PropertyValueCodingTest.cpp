#include "Platform/PropertyValueCoding.h"
#include "Tests/Platform/Storage/SampleValues.h"

#include <gtest/gtest.h>

#include <cmath>

namespace platform {

namespace {

using namespace std::string_literals;

Data bytes(std::string_view text)
{
    Data data;
    for (const char letter : text) {
        data.push_back(static_cast<std::byte>(letter));
    }
    return data;
}

Data number(std::uint64_t value)
{
    Data data;
    for (int index = 0; index < 8; ++index) {
        data.push_back(static_cast<std::byte>(value >> (8 * index)));
    }
    return data;
}

Data joined(std::initializer_list<Data> parts)
{
    Data whole;
    for (const auto &part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

PropertyValue nested(int depth)
{
    PropertyValue value = PropertyList{};
    for (int level = 1; level < depth; ++level) {
        value = PropertyList{value};
    }
    return value;
}

TEST(PropertyValueCoding, GivesEveryValueBackWithItsType)
{
    for (const auto &value : sampleValues()) {
        const auto encoded = encodedPropertyValue(value);
        ASSERT_TRUE(encoded);
        EXPECT_EQ(decodedPropertyValue(*encoded), value);
    }
}

TEST(PropertyValueCoding, TellsEveryTwoValuesApart)
{
    const auto values = sampleValues();
    for (std::size_t first = 0; first < values.size(); ++first) {
        for (std::size_t second = 0; second < first; ++second) {
            EXPECT_NE(values[first], values[second]);
            EXPECT_NE(encodedPropertyValue(values[first]), encodedPropertyValue(values[second]));
        }
    }
}

TEST(PropertyValueCoding, HasTheFormThatIsWritten)
{
    EXPECT_EQ(encodedPropertyValue("ab"s), joined({bytes("S"), number(2), bytes("ab")}));
    EXPECT_EQ(encodedPropertyValue(std::int64_t{-2}), joined({bytes("I"), number(~1ULL)}));
    EXPECT_EQ(encodedPropertyValue(1.0), joined({bytes("D"), number(0x3FF0'0000'0000'0000ULL)}));
    EXPECT_EQ(encodedPropertyValue(true), bytes("B\1"));
    EXPECT_EQ(encodedPropertyValue(foundation::referenceDate),
              joined({bytes("T"), number(978'307'200'000'000ULL)}));
    EXPECT_EQ(encodedPropertyValue(bytes("ab")), joined({bytes("X"), number(2), bytes("ab")}));
    EXPECT_EQ(encodedPropertyValue(PropertyList{true}), joined({bytes("L"), number(1), bytes("B\1")}));
    EXPECT_EQ(encodedPropertyValue(PropertyDictionary{{"k", true}}),
              joined({bytes("M"), number(1), number(1), bytes("kB\1")}));
}

TEST(PropertyValueCoding, KeepsTheBitsOfADoubleThatIsNoNumber)
{
    const auto encoded = encodedPropertyValue(std::nan(""));
    ASSERT_TRUE(encoded);
    const auto decoded = decodedPropertyValue(*encoded);
    ASSERT_TRUE(decoded);
    EXPECT_TRUE(std::isnan(std::get<double>(*decoded)));
}

TEST(PropertyValueCoding, RefusesTextThatIsNotUtf8)
{
    EXPECT_EQ(encodedPropertyValue("\xFF"s), std::nullopt);
    EXPECT_EQ(encodedPropertyValue(PropertyList{"fine"s, "\xC3"s}), std::nullopt);
    EXPECT_EQ(encodedPropertyValue(PropertyDictionary{{"\xFF", true}}), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(joined({bytes("S"), number(1), bytes("\xFF")})), std::nullopt);
}

TEST(PropertyValueCoding, RefusesWhatIsTooDeepInBothDirections)
{
    const auto deepest = encodedPropertyValue(nested(deepestPropertyValue));
    ASSERT_TRUE(deepest);
    EXPECT_EQ(decodedPropertyValue(*deepest), nested(deepestPropertyValue));
    EXPECT_EQ(encodedPropertyValue(nested(deepestPropertyValue + 1)), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(joined({bytes("L"), number(1), *deepest})), std::nullopt);
    const auto level = joined({bytes("L"), number(1)});
    Data bomb;
    for (int count = 0; count < 1'000'000; ++count) {
        bomb.insert(bomb.end(), level.begin(), level.end());
    }
    EXPECT_EQ(decodedPropertyValue(bomb), std::nullopt);
}

TEST(PropertyValueCoding, RefusesEveryBeginningOfAValue)
{
    for (const auto &value : sampleValues()) {
        const auto encoded = encodedPropertyValue(value);
        ASSERT_TRUE(encoded);
        for (std::size_t length = 0; length < encoded->size(); ++length) {
            EXPECT_EQ(decodedPropertyValue(std::span(*encoded).first(length)), std::nullopt);
        }
    }
}

TEST(PropertyValueCoding, RefusesWhatFollowsAValue)
{
    for (const auto &value : sampleValues()) {
        auto encoded = encodedPropertyValue(value);
        ASSERT_TRUE(encoded);
        encoded->push_back(std::byte{0});
        EXPECT_EQ(decodedPropertyValue(*encoded), std::nullopt);
    }
}

TEST(PropertyValueCoding, RefusesFormsThatAreNotTheOne)
{
    EXPECT_EQ(decodedPropertyValue(bytes("B\2")), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(bytes("s")), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(bytes("Z")), std::nullopt);
    const auto entry = [](const char *key) { return joined({number(1), bytes(key), bytes("B\1")}); };
    EXPECT_NE(decodedPropertyValue(joined({bytes("M"), number(2), entry("a"), entry("b")})), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(joined({bytes("M"), number(2), entry("b"), entry("a")})), std::nullopt);
    EXPECT_EQ(decodedPropertyValue(joined({bytes("M"), number(2), entry("a"), entry("a")})), std::nullopt);
}

TEST(PropertyValueCoding, BelievesNoLengthBeforeTheBytesAreThere)
{
    constexpr auto huge = ~std::uint64_t{0};
    for (const auto *type : {"S", "X", "L", "M"}) {
        EXPECT_EQ(decodedPropertyValue(joined({bytes(type), number(huge)})), std::nullopt);
        EXPECT_EQ(decodedPropertyValue(joined({bytes(type), number(huge / 2), bytes("B\1")})), std::nullopt);
    }
}

} // namespace

} // namespace platform

#include "Foundation/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using foundation::isUtf8;
using namespace std::string_view_literals;

TEST(Utf8, TakesTextOfEveryLength)
{
    for (const auto text : {""sv, "plain"sv, "\0"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv,
                            "\xED\x9F\xBF"sv, "\xEE\x80\x80"sv, "\xEF\xBF\xBF"sv, "\xF0\x90\x80\x80"sv,
                            "\xF4\x8F\xBF\xBF"sv, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x92\x9Az"sv}) {
        EXPECT_TRUE(isUtf8(text)) << text;
    }
}

TEST(Utf8, RefusesWhatIsNoText)
{
    for (const auto bytes :
         {"\x80"sv, "\xBF"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xE0\x9F\xBF"sv, "\xED\xA0\x80"sv,
          "\xED\xBF\xBF"sv, "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xFE"sv,
          "\xFF"sv, "\xC3("sv, "\xE2\x82("sv, "\xF0\x9F\x92("sv}) {
        EXPECT_FALSE(isUtf8(bytes));
        EXPECT_FALSE(isUtf8("before" + std::string(bytes) + "after"));
    }
}

TEST(Utf8, RefusesASequenceCutShort)
{
    for (const auto character : {"\xC3\xA4"sv, "\xE2\x82\xAC"sv, "\xF0\x9F\x92\x9A"sv}) {
        for (std::size_t length = 1; length < character.size(); ++length) {
            EXPECT_FALSE(isUtf8(character.substr(0, length)));
        }
    }
}

} // namespace

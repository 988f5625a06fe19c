#include "Platform/Linux/Typing/TypedSymbols.h"

#include <gmock/gmock.h>

namespace platform {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr KeySymbol ofUnicode = 0x01000000; // added to the code point

} // namespace

TEST(TypedSymbolsTest, LettersHaveTheSymbolsThatTheyHadBeforeUnicodeAndOthersTheirCodePoint)
{
    EXPECT_THAT(typedSymbols(u"aA ~"), ElementsAre(0x61, 0x41, 0x20, 0x7e));
    EXPECT_THAT(typedSymbols(u"ß€"), ElementsAre(0xdf, 0x20ac));
    EXPECT_THAT(typedSymbols(u"漢"), ElementsAre(ofUnicode + 0x6f22));
}

TEST(TypedSymbolsTest, ACharacterOfSeveralCodePointsHasASymbolForEach)
{
    EXPECT_THAT(typedSymbols(u"e\u0301"), ElementsAre(0x65, ofUnicode + 0x301));
    EXPECT_THAT(typedSymbols(u"👩\u200d👧"),
                ElementsAre(ofUnicode + 0x1f469, ofUnicode + 0x200d, ofUnicode + 0x1f467));
}

TEST(TypedSymbolsTest, EachKindOfNewlineIsOneReturnAndATabIsTab)
{
    EXPECT_THAT(typedSymbols(u"\n"), ElementsAre(returnSymbol));
    EXPECT_THAT(typedSymbols(u"\r"), ElementsAre(returnSymbol));
    EXPECT_THAT(typedSymbols(u"\r\n"), ElementsAre(returnSymbol));
    EXPECT_THAT(typedSymbols(u"\n\n\t"), ElementsAre(returnSymbol, returnSymbol, tabSymbol));
}

TEST(TypedSymbolsTest, WhatIsNoCharacterHasNoKey)
{
    EXPECT_THAT(typedSymbols(u""), IsEmpty());
    EXPECT_THAT(typedSymbols(u"\uffff"), IsEmpty());
    EXPECT_THAT(typedSymbols(u"\u0001\u0008\u001b\u007f\u0085"), IsEmpty());
}

TEST(TypedSymbolsTest, HalfOfAPairIsItsReplacement)
{
    EXPECT_THAT(typedSymbols(std::u16string{u'a', char16_t{0xd83d}, u'b', char16_t{0xde00}}),
                ElementsAre(0x61, ofUnicode + 0xfffd, 0x62, ofUnicode + 0xfffd));
}

} // namespace platform

#include "Platform/Linux/Wayland/Keymap.h"

#include "Tests/Support/Wayland/WaylandUser.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::Not;
using testing::Optional;
using testsupport::WaylandUser;

constexpr std::uint16_t keyF19 = 189;
constexpr std::uint16_t keyF24 = 194;
constexpr std::uint16_t keyUnknown = 240;

// The keymap of a layout with one key defined anew.
QByteArray keymapWith(const QByteArray &key)
{
    return WaylandUser::keymapOfLayout("us").replace("key <AE01>", key + "\n\tkey <AE01>");
}

} // namespace

TEST(KeymapTest, CommonLayoutsLeaveTheSilentKeysWithoutAMeaning)
{
    for (const auto *layout : {"us", "de", "fr", "ru", "jp", "us,de,il"}) {
        EXPECT_THAT(keysWithMeaning(WaylandUser::keymapOfLayout(layout)),
                    Optional(AllOf(Not(Contains(keyF19)), Not(Contains(keyF24)), Not(Contains(keyUnknown)))))
            << layout;
    }
}

TEST(KeymapTest, ASymbolOnAnyLevelIsAMeaning)
{
    EXPECT_THAT(keysWithMeaning(keymapWith("key <FK24> { [ a ] };")),
                Optional(AllOf(Contains(keyF24), Not(Contains(keyF19)))));
    EXPECT_THAT(keysWithMeaning(keymapWith("key <FK19> { [ NoSymbol, NoSymbol, NoSymbol, a ] };")),
                Optional(AllOf(Contains(keyF19), Not(Contains(keyF24)))));
    EXPECT_THAT(keysWithMeaning(
                    keymapWith("key <FK19> { symbols[Group1] = [ NoSymbol ], symbols[Group2] = [ a ] };")),
                Optional(Contains(keyF19)));
}

TEST(KeymapTest, AnActionWithoutASymbolIsAMeaning)
{
    EXPECT_THAT(keysWithMeaning(keymapWith("key <FK24> { [ NoSymbol ], [ SetMods(modifiers=Shift) ] };")),
                Optional(Contains(keyF24)));
    EXPECT_THAT(keysWithMeaning(keymapWith("key <FK24> { symbols[Group1] = [ NoSymbol ], actions[Group1] = [ "
                                           "LockMods(modifiers=Lock) ] };")),
                Optional(Contains(keyF24)));
}

TEST(KeymapTest, WhatIsNoKeymapHasNone)
{
    for (const auto *text : {"", "nonsense", "xkb_keymap {", "xkb_keymap { };;"}) {
        EXPECT_EQ(keysWithMeaning(text), std::nullopt) << text;
    }
}

TEST(KeymapTest, TheDefaultKeymapIsOne)
{
    EXPECT_NE(keysWithMeaning(defaultKeymapText()), std::nullopt);
}

} // namespace platform

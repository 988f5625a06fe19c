#include "Platform/Linux/Wayland/TypingKeymap.h"

#include <xkbcommon/xkbcommon.h>

#include <gmock/gmock.h>

#include <set>

namespace platform {

namespace {

using testing::Contains;
using testing::Not;

constexpr xkb_keycode_t xkbCodeOfEvdevCode = 8;
constexpr std::size_t printingKeys = 48;

struct Unref
{
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
};
template <class T> using Xkb = std::unique_ptr<T, Unref>;

// As a program reads it that has no keyboard data of its own.
Xkb<xkb_keymap> compiled(const TypingKeymap &keymap)
{
    const Xkb<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    return Xkb<xkb_keymap>(xkb_keymap_new_from_string(
        context.get(), keymap.text().constData(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

std::vector<KeySymbol> chineseSymbols(std::size_t count)
{
    std::vector<KeySymbol> symbols;
    for (KeySymbol i = 0; i < count; ++i) {
        symbols.push_back(0x01004e00 + i);
    }
    return symbols;
}

} // namespace

TEST(TypingKeymapTest, EachKeyTypesItsSymbolWhateverTheModifiers)
{
    const auto symbols = typedSymbols(u"aAß€漢👩\u200d~ 1");
    const TypingKeymap keymap(symbols);
    const auto compiledKeymap = compiled(keymap);
    ASSERT_NE(compiledKeymap, nullptr);
    for (const xkb_mod_mask_t modifiers : {0x00U, 0x01U, 0x04U, 0xfdU}) {
        const Xkb<xkb_state> state(xkb_state_new(compiledKeymap.get()));
        xkb_state_update_mask(state.get(), modifiers, 0, 0, 0, 0, 0);
        for (const auto symbol : symbols) {
            const auto key = keymap.keyOf(symbol);
            ASSERT_TRUE(key.has_value());
            EXPECT_EQ(xkb_state_key_get_one_sym(state.get(), *key + xkbCodeOfEvdevCode), symbol);
        }
    }
}

TEST(TypingKeymapTest, ReturnAndTabAreOnTheirOwnKeys)
{
    const TypingKeymap keymap(typedSymbols(u"a\n\t"));
    EXPECT_EQ(keymap.keyOf(returnSymbol), 28);
    EXPECT_EQ(keymap.keyOf(tabSymbol), 15);
    EXPECT_NE(compiled(keymap), nullptr);
}

TEST(TypingKeymapTest, NoOtherKeyHasAMeaningOfItsOwnToPrograms)
{
    constexpr std::uint16_t escape = 1;
    constexpr std::uint16_t backspace = 14;
    constexpr std::uint16_t leftControl = 29;
    constexpr std::uint16_t leftShift = 42;
    const auto symbols = chineseSymbols(printingKeys);
    const TypingKeymap keymap(symbols);
    std::set<std::uint16_t> keys;
    for (const auto symbol : symbols) {
        ASSERT_TRUE(keymap.keyOf(symbol).has_value());
        keys.insert(*keymap.keyOf(symbol));
    }
    EXPECT_EQ(keys.size(), printingKeys);
    for (const auto key : {escape, backspace, leftControl, leftShift}) {
        EXPECT_THAT(keys, Not(Contains(key)));
    }
}

TEST(TypingKeymapTest, WhatDoesNotFitIsLeftOut)
{
    auto symbols = chineseSymbols(printingKeys + 1);
    symbols.insert(symbols.begin(), symbols.front()); // twice the same is one key
    const TypingKeymap keymap(symbols);
    EXPECT_TRUE(keymap.keyOf(symbols[printingKeys]).has_value());
    EXPECT_FALSE(keymap.keyOf(symbols[printingKeys + 1]).has_value());
    EXPECT_NE(compiled(keymap), nullptr);
}

} // namespace platform

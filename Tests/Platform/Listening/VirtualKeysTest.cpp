// The table of virtual key codes.

#include "Platform/Linux/VirtualKeys.h"

#include <linux/input-event-codes.h>

#include <gmock/gmock.h>

#include <set>

namespace platform {

namespace {

using testing::Optional;

constexpr int allCodes = 0x10000;

// By its rows, from the upper left corner: 105 keys.
const std::set<int> keysOf105{
    KEY_ESC,        KEY_F1,        KEY_F2,         KEY_F3,      KEY_F4,        KEY_F5,        KEY_F6,
    KEY_F7,         KEY_F8,        KEY_F9,         KEY_F10,     KEY_F11,       KEY_F12,       KEY_SYSRQ,
    KEY_SCROLLLOCK, KEY_PAUSE,     KEY_GRAVE,      KEY_1,       KEY_2,         KEY_3,         KEY_4,
    KEY_5,          KEY_6,         KEY_7,          KEY_8,       KEY_9,         KEY_0,         KEY_MINUS,
    KEY_EQUAL,      KEY_BACKSPACE, KEY_INSERT,     KEY_HOME,    KEY_PAGEUP,    KEY_NUMLOCK,   KEY_KPSLASH,
    KEY_KPASTERISK, KEY_KPMINUS,   KEY_TAB,        KEY_Q,       KEY_W,         KEY_E,         KEY_R,
    KEY_T,          KEY_Y,         KEY_U,          KEY_I,       KEY_O,         KEY_P,         KEY_LEFTBRACE,
    KEY_RIGHTBRACE, KEY_ENTER,     KEY_DELETE,     KEY_END,     KEY_PAGEDOWN,  KEY_KP7,       KEY_KP8,
    KEY_KP9,        KEY_KPPLUS,    KEY_CAPSLOCK,   KEY_A,       KEY_S,         KEY_D,         KEY_F,
    KEY_G,          KEY_H,         KEY_J,          KEY_K,       KEY_L,         KEY_SEMICOLON, KEY_APOSTROPHE,
    KEY_BACKSLASH,  KEY_KP4,       KEY_KP5,        KEY_KP6,     KEY_LEFTSHIFT, KEY_102ND,     KEY_Z,
    KEY_X,          KEY_C,         KEY_V,          KEY_B,       KEY_N,         KEY_M,         KEY_COMMA,
    KEY_DOT,        KEY_SLASH,     KEY_RIGHTSHIFT, KEY_UP,      KEY_KP1,       KEY_KP2,       KEY_KP3,
    KEY_KPENTER,    KEY_LEFTCTRL,  KEY_LEFTMETA,   KEY_LEFTALT, KEY_SPACE,     KEY_RIGHTALT,  KEY_RIGHTMETA,
    KEY_COMPOSE,    KEY_RIGHTCTRL, KEY_LEFT,       KEY_DOWN,    KEY_RIGHT,     KEY_KP0,       KEY_KPDOT};

} // namespace

TEST(VirtualKeysTest, EveryKeyHasACodeAndNoTwoHaveTheSame)
{
    std::set<int> codes;
    for (int key = 0; key <= KEY_MAX; ++key) {
        const auto code = virtualKeyCodeOf(static_cast<std::uint16_t>(key));
        EXPECT_TRUE(codes.insert(code).second) << key;
        EXPECT_THAT(evdevCodeOf(code), Optional(key));
    }
}

TEST(VirtualKeysTest, EveryCodeThatHasAKeyIsThatKeys)
{
    int count = 0;
    for (int code = 0; code < allCodes; ++code) {
        if (const auto key = evdevCodeOf(static_cast<std::uint16_t>(code))) {
            EXPECT_EQ(virtualKeyCodeOf(*key), code);
            ++count;
        }
    }
    EXPECT_EQ(count, KEY_MAX + 1);
}

TEST(VirtualKeysTest, AKeyboardOf105KeysIsInTheTableButForThreeKeys)
{
    ASSERT_EQ(keysOf105.size(), 105U);
    std::set<int> unlisted;
    for (const int key : keysOf105) {
        if (virtualKeyCodeOf(static_cast<std::uint16_t>(key)) >= codeOfUnlistedKeys) {
            unlisted.insert(key);
        }
    }
    EXPECT_EQ(unlisted, (std::set<int>{KEY_SYSRQ, KEY_SCROLLLOCK, KEY_PAUSE}));
}

TEST(VirtualKeysTest, TheCodesAreThoseOfTheCommonTable)
{
    struct Pair
    {
        int key;
        int code;
    };
    for (const auto &[key, code] : {
             Pair{KEY_A, 0},    {KEY_BACKSPACE, 51}, {KEY_LEFTMETA, 55}, {KEY_RIGHTMETA, 54},
             {KEY_ENTER, 36},   {KEY_TAB, 48},       {KEY_SPACE, 49},    {KEY_ESC, 53},
             {KEY_DELETE, 117}, {KEY_KPENTER, 76},   {KEY_KP0, 82},      {KEY_KP9, 92},
             {KEY_F1, 122},     {KEY_F12, 111},      {KEY_F13, 105},     {KEY_F19, 80},
             {KEY_F20, 90},     {KEY_MUTE, 74},      {KEY_VOLUMEUP, 72}, {KEY_VOLUMEDOWN, 73},
             {KEY_102ND, 10},   {KEY_YEN, 93},       {KEY_RO, 94},       {KEY_LEFT, 123},
             {KEY_UP, 126},     {KEY_GRAVE, 50},     {KEY_FN, 63},       {KEY_COMPOSE, 110},
         }) {
        EXPECT_EQ(virtualKeyCodeOf(static_cast<std::uint16_t>(key)), code) << key;
    }
    for (int key = KEY_F13; key <= KEY_F20; ++key) {
        EXPECT_LT(virtualKeyCodeOf(static_cast<std::uint16_t>(key)), codeOfUnlistedKeys) << key;
    }
    EXPECT_EQ(virtualKeyCodeOf(KEY_PLAYPAUSE), codeOfUnlistedKeys + KEY_PLAYPAUSE);
    EXPECT_EQ(evdevCodeOf(0x34), std::nullopt) << "no key has it";
    EXPECT_EQ(evdevCodeOf(0xFFFF), std::nullopt);
}

} // namespace platform

#include "Platform/Linux/VirtualKeys.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>

namespace platform {

namespace {

struct Pair
{
    std::uint16_t evdevCode;
    std::uint16_t virtualKeyCode;
};

// By the place of the key: Insert is where Apple's keyboards have Help, Num Lock where they have Clear, and
// the Japanese Eisu and Kana are the keys that the kernel names after the Korean keyboard.
constexpr std::array listedKeys{
    Pair{KEY_A, 0x00},          Pair{KEY_S, 0x01},         Pair{KEY_D, 0x02},
    Pair{KEY_F, 0x03},          Pair{KEY_H, 0x04},         Pair{KEY_G, 0x05},
    Pair{KEY_Z, 0x06},          Pair{KEY_X, 0x07},         Pair{KEY_C, 0x08},
    Pair{KEY_V, 0x09},          Pair{KEY_102ND, 0x0A},     Pair{KEY_B, 0x0B},
    Pair{KEY_Q, 0x0C},          Pair{KEY_W, 0x0D},         Pair{KEY_E, 0x0E},
    Pair{KEY_R, 0x0F},          Pair{KEY_Y, 0x10},         Pair{KEY_T, 0x11},
    Pair{KEY_1, 0x12},          Pair{KEY_2, 0x13},         Pair{KEY_3, 0x14},
    Pair{KEY_4, 0x15},          Pair{KEY_6, 0x16},         Pair{KEY_5, 0x17},
    Pair{KEY_EQUAL, 0x18},      Pair{KEY_9, 0x19},         Pair{KEY_7, 0x1A},
    Pair{KEY_MINUS, 0x1B},      Pair{KEY_8, 0x1C},         Pair{KEY_0, 0x1D},
    Pair{KEY_RIGHTBRACE, 0x1E}, Pair{KEY_O, 0x1F},         Pair{KEY_U, 0x20},
    Pair{KEY_LEFTBRACE, 0x21},  Pair{KEY_I, 0x22},         Pair{KEY_P, 0x23},
    Pair{KEY_ENTER, 0x24},      Pair{KEY_L, 0x25},         Pair{KEY_J, 0x26},
    Pair{KEY_APOSTROPHE, 0x27}, Pair{KEY_K, 0x28},         Pair{KEY_SEMICOLON, 0x29},
    Pair{KEY_BACKSLASH, 0x2A},  Pair{KEY_COMMA, 0x2B},     Pair{KEY_SLASH, 0x2C},
    Pair{KEY_N, 0x2D},          Pair{KEY_M, 0x2E},         Pair{KEY_DOT, 0x2F},
    Pair{KEY_TAB, 0x30},        Pair{KEY_SPACE, 0x31},     Pair{KEY_GRAVE, 0x32},
    Pair{KEY_BACKSPACE, 0x33},  Pair{KEY_ESC, 0x35},       Pair{KEY_RIGHTMETA, 0x36},
    Pair{KEY_LEFTMETA, 0x37},   Pair{KEY_LEFTSHIFT, 0x38}, Pair{KEY_CAPSLOCK, 0x39},
    Pair{KEY_LEFTALT, 0x3A},    Pair{KEY_LEFTCTRL, 0x3B},  Pair{KEY_RIGHTSHIFT, 0x3C},
    Pair{KEY_RIGHTALT, 0x3D},   Pair{KEY_RIGHTCTRL, 0x3E}, Pair{KEY_FN, 0x3F},
    Pair{KEY_F17, 0x40},        Pair{KEY_KPDOT, 0x41},     Pair{KEY_KPASTERISK, 0x43},
    Pair{KEY_KPPLUS, 0x45},     Pair{KEY_NUMLOCK, 0x47},   Pair{KEY_VOLUMEUP, 0x48},
    Pair{KEY_VOLUMEDOWN, 0x49}, Pair{KEY_MUTE, 0x4A},      Pair{KEY_KPSLASH, 0x4B},
    Pair{KEY_KPENTER, 0x4C},    Pair{KEY_KPMINUS, 0x4E},   Pair{KEY_F18, 0x4F},
    Pair{KEY_F19, 0x50},        Pair{KEY_KPEQUAL, 0x51},   Pair{KEY_KP0, 0x52},
    Pair{KEY_KP1, 0x53},        Pair{KEY_KP2, 0x54},       Pair{KEY_KP3, 0x55},
    Pair{KEY_KP4, 0x56},        Pair{KEY_KP5, 0x57},       Pair{KEY_KP6, 0x58},
    Pair{KEY_KP7, 0x59},        Pair{KEY_F20, 0x5A},       Pair{KEY_KP8, 0x5B},
    Pair{KEY_KP9, 0x5C},        Pair{KEY_YEN, 0x5D},       Pair{KEY_RO, 0x5E},
    Pair{KEY_KPCOMMA, 0x5F},    Pair{KEY_F5, 0x60},        Pair{KEY_F6, 0x61},
    Pair{KEY_F7, 0x62},         Pair{KEY_F3, 0x63},        Pair{KEY_F8, 0x64},
    Pair{KEY_F9, 0x65},         Pair{KEY_HANJA, 0x66},     Pair{KEY_F11, 0x67},
    Pair{KEY_HANGEUL, 0x68},    Pair{KEY_F13, 0x69},       Pair{KEY_F16, 0x6A},
    Pair{KEY_F14, 0x6B},        Pair{KEY_F10, 0x6D},       Pair{KEY_COMPOSE, 0x6E},
    Pair{KEY_F12, 0x6F},        Pair{KEY_F15, 0x71},       Pair{KEY_INSERT, 0x72},
    Pair{KEY_HOME, 0x73},       Pair{KEY_PAGEUP, 0x74},    Pair{KEY_DELETE, 0x75},
    Pair{KEY_F4, 0x76},         Pair{KEY_END, 0x77},       Pair{KEY_F2, 0x78},
    Pair{KEY_PAGEDOWN, 0x79},   Pair{KEY_F1, 0x7A},        Pair{KEY_LEFT, 0x7B},
    Pair{KEY_RIGHT, 0x7C},      Pair{KEY_DOWN, 0x7D},      Pair{KEY_UP, 0x7E},
};

constexpr bool isListedCode(std::uint16_t virtualKeyCode)
{
    return virtualKeyCode < codeOfUnlistedKeys;
}

} // namespace

std::uint16_t virtualKeyCodeOf(std::uint16_t evdevCode)
{
    const auto *found = std::ranges::find(listedKeys, evdevCode, &Pair::evdevCode);
    return found == listedKeys.end() ? static_cast<std::uint16_t>(codeOfUnlistedKeys + evdevCode)
                                     : found->virtualKeyCode;
}

std::optional<std::uint16_t> evdevCodeOf(std::uint16_t virtualKeyCode)
{
    if (isListedCode(virtualKeyCode)) {
        const auto *found = std::ranges::find(listedKeys, virtualKeyCode, &Pair::virtualKeyCode);
        return found == listedKeys.end() ? std::nullopt : std::optional(found->evdevCode);
    }
    const auto evdevCode = static_cast<std::uint16_t>(virtualKeyCode - codeOfUnlistedKeys);
    const bool isKey = evdevCode <= KEY_MAX && virtualKeyCodeOf(evdevCode) == virtualKeyCode;
    return isKey ? std::optional(evdevCode) : std::nullopt;
}

} // namespace platform

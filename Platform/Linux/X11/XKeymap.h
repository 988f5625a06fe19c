// What the keys of an X server's keyboards mean.
#pragma once

#include "Platform/Linux/X11/XKeyboards.h"

#include <array>
#include <map>
#include <optional>

namespace platform {

// What a keymap says of a key, in the server's own words, so that it can be put back bit by bit.
struct XKeyMeaning
{
    using Action = std::array<std::uint8_t, 8>;

    std::array<std::uint8_t, 4> types{}; // of each group: how the modifiers choose the level
    std::uint8_t groupInfo = 0;
    std::uint8_t width = 0; // levels in each group
    std::vector<xcb_keysym_t> symbols;
    std::vector<Action> actions; // one for each symbol, or none

    bool operator==(const XKeyMeaning &) const = default;
};

// By key code.
using XKeyMeanings = std::map<xcb_keycode_t, XKeyMeaning>;

struct XKeymap
{
    XKeyMeanings keys;                      // every code that the server has
    std::vector<xcb_keycode_t> specialKeys; // that have a modifier, or a behaviour of their own

    bool operator==(const XKeymap &) const = default;
};

// Nothing where the server does not answer. REQUIRES: startKeyboardExtensions().
[[nodiscard]] std::optional<XKeymap> readKeymap(XConnection &connection, XKeyboard keyboard);

// A meaning is changed in two steps, since the server counts the actions against the symbols that were there
// before: new symbols before new actions.
enum class XKeyPart { symbols, actions };

// Gives keys of the core keyboard, and of all that are attached to it, one part of these meanings. Programs
// are told once for each row of codes without a gap. Queued; the caller flushes. REQUIRES:
// startKeyboardExtensions().
void setKeyMeanings(XConnection &connection, const XKeyMeanings &meanings, XKeyPart part);

// The same as bytes to be written to a connection by somebody who has no more than that.
[[nodiscard]] std::vector<std::uint8_t> keyMeaningRequests(XConnection &connection,
                                                           const XKeyMeanings &meanings, XKeyPart part);

} // namespace platform

// Which keys of an imagined keyboard with all characters a text is typed on.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

// A key symbol, as X11 and xkb number them.
using KeySymbol = std::uint32_t;

inline constexpr KeySymbol returnSymbol = 0xff0d;
inline constexpr KeySymbol tabSymbol = 0xff09;

// One symbol for each code point, in order. A newline ("\n", "\r" or both) is Return and a tab is Tab; other
// control characters and code points that are no characters are left out. Half of a surrogate pair is U+FFFD.
// Any thread.
[[nodiscard]] std::vector<KeySymbol> typedSymbols(std::u16string_view text);

} // namespace platform

// The scale of the light controller, which its callers expect, for light that was measured in others.
#pragma once

#include <cstdint>

namespace platform {

// What the controller tells in full brightness. The callers divide by it.
inline constexpr std::uint64_t brightestLight = 50'000'000;

// Lux that a reading of the controller stands for: a polynomial of fourth degree, fitted to readings that
// were taken beside a lux meter (bugzilla.mozilla.org, bug 793728; browsers have used it since). It begins at
// -0.19 lux, counted as none, and grows up to 55,000,000. Readings beyond `brightestLight` count as that.
[[nodiscard]] double luxOfLight(std::uint64_t light);

// The reading that stands for so many lux, 0 to `brightestLight`, to a unit: the reverse of the above. 7635
// lux and more are full brightness. A number that is none is dark.
[[nodiscard]] std::uint64_t lightOfLux(double lux);

// The reading for a value of Apple's system controller, whose Linux driver tells 0 to 255 (applesmc, 8 bits
// of its sensor): linear, 255 is full brightness. Values outside are taken for the end that they are nearest
// to.
[[nodiscard]] std::uint64_t lightOfByte(double value);

} // namespace platform

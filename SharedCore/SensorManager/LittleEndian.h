// Numbers in the bytes of reports. Private to the sensors; any thread, nothing is allocated.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace sharedcore {

// The number whose lowest byte is the one at `offset`, wherever that lies in memory.
// REQUIRES: the number's bytes are all there, and no more than four.
template <std::signed_integral Number>
[[nodiscard]] constexpr Number littleEndianAt(std::span<const std::byte> bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t index = sizeof(Number); index-- > 0;) {
        value = value << 8U | std::to_integer<std::uint32_t>(bytes[offset + index]);
    }
    return static_cast<Number>(static_cast<std::make_unsigned_t<Number>>(value));
}

} // namespace sharedcore

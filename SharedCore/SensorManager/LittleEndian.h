// Numbers in the bytes of reports. Private to the sensors; any thread, nothing is allocated.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

namespace sharedcore {

// The number whose lowest byte is the one at `offset`, wherever that lies in memory.
// REQUIRES: the number's bytes are all there, and no more than four.
template <std::signed_integral Number>
[[nodiscard]] constexpr Number littleEndianAt(std::span<const std::byte> bytes, std::size_t offset)
{
    // Written out, so that the compiler sees that it is one load.
    const auto value = [ bytes, offset ]<std::size_t... index>(std::index_sequence<index...> /*unused*/)
    {
        return ((std::to_integer<std::uint32_t>(bytes[offset + index]) << (8 * index)) | ...);
    }
    (std::make_index_sequence<sizeof(Number)>());
    return static_cast<Number>(static_cast<std::make_unsigned_t<Number>>(value));
}

} // namespace sharedcore

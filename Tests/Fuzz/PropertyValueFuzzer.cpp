// Plain values from any bytes. What is decoded has been stored in the one form that it has.

#include "Platform/PropertyValueCoding.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    if (const auto value = platform::decodedPropertyValue(bytes)) {
        const auto encoded = platform::encodedPropertyValue(*value);
        if (!encoded || !std::ranges::equal(*encoded, bytes)) {
            std::abort();
        }
    }
    return 0;
}

// The bytes that a plain value is stored as. Any thread.
#pragma once

#include "Platform/PropertyValue.h"

#include <optional>
#include <span>

namespace platform {

// Lists and dictionaries inside one another beyond this many are refused, in both directions.
inline constexpr int deepestPropertyValue = 100;

// A byte that names the type, then the value; a value has one form only:
//
//     S  text         its length, its bytes (UTF-8)
//     I  whole number 8 bytes, two's complement
//     D  double       8 bytes, IEEE 754
//     B  Boolean      1 byte, 0 or 1
//     T  date         8 bytes, two's complement: microseconds since 1970-01-01 UTC
//     X  data         its length, its bytes
//     L  list         the number of its values, the values
//     M  dictionary   the number of its entries; for each, in ascending order of the keys' bytes, the key's
//                     length, the key's bytes (UTF-8), the value
//
// Lengths and counts are 8 bytes. All numbers begin with their lowest byte. Gives nothing for a text or key
// that is not UTF-8, and for what is too deep.
std::optional<Data> encodedPropertyValue(const PropertyValue &value);

// The value that the bytes are the form of; nothing for any other bytes.
std::optional<PropertyValue> decodedPropertyValue(std::span<const std::byte> bytes);

} // namespace platform

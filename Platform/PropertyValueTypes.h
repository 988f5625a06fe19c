// The bytes that name the types of stored values.
#pragma once

#include <cstdint>

namespace platform {

enum class PropertyType : std::uint8_t {
    text = 'S',
    wholeNumber = 'I',
    doubleNumber = 'D',
    boolean = 'B',
    date = 'T',
    data = 'X',
    list = 'L',
    dictionary = 'M',
};

} // namespace platform

// A plain value of every type, its extremes, and what is made of them.
#pragma once

#include "Platform/PropertyValue.h"

#include <limits>

namespace platform {

inline std::vector<PropertyValue> sampleValues()
{
    using namespace std::string_literals;
    using Number = std::numeric_limits<std::int64_t>;
    using Double = std::numeric_limits<double>;
    const Data data{std::byte{0}, std::byte{255}, std::byte{'1'}};
    const PropertyList list{"1"s, std::int64_t{1}, 1.0, true, foundation::referenceDate,
                            data, PropertyList{}};
    const PropertyDictionary dictionary{{"", ""s}, {"a\0b"s, list}, {"\xC3\xA4"s, PropertyDictionary{}}};
    return {""s,
            "1"s,
            "with \0 and \xF0\x9F\x92\x9A"s,
            std::int64_t{0},
            std::int64_t{1},
            Number::min(),
            Number::max(),
            0.0,
            1.0,
            -0.1,
            Double::max(),
            Double::denorm_min(),
            -Double::infinity(),
            true,
            false,
            foundation::referenceDate,
            foundation::referenceDate + std::chrono::microseconds(1),
            foundation::Date::min(),
            Data{},
            data,
            list,
            dictionary,
            PropertyList{dictionary, list}};
}

} // namespace platform

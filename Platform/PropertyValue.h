// The plain values that a store keeps with their types.
#pragma once

#include "Foundation/ReferenceDate.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace platform {

struct PropertyValue;

using Data = std::vector<std::byte>;
using PropertyList = std::vector<PropertyValue>;
using PropertyDictionary = std::map<std::string, PropertyValue, std::less<>>;

// A text (UTF-8), whole number, double, Boolean, date, data, list or dictionary (its keys are UTF-8). Two
// values of different types are never equal: the text "1", the number 1, 1.0 and true are four values.
struct PropertyValue : std::variant<std::string, std::int64_t, double, bool, foundation::Date, Data,
                                    PropertyList, PropertyDictionary>
{
    using variant::variant;
};

} // namespace platform

#include "SharedCore/Storage/Coding.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace sharedcore {

namespace {

constexpr double largestExactNumber = 9007199254740992.0; // 2^53

bool isExactNumber(const Json &json)
{
    if (!json.is_number_float()) {
        return false;
    }
    const auto number = json.get<double>();
    return std::trunc(number) == number && std::abs(number) <= largestExactNumber;
}

bool isWholeNumber(const Json &json)
{
    if (json.is_number_unsigned()) { // as those are parsed that have no sign
        return std::in_range<std::int64_t>(json.get<std::uint64_t>());
    }
    return json.is_number_integer() || isExactNumber(json);
}

} // namespace

bool Coding<bool>::encode(bool value, Json &json)
{
    json = value;
    return true;
}

bool Coding<bool>::decode(const Json &json, bool &value)
{
    if (!json.is_boolean()) {
        return false;
    }
    value = json.get<bool>();
    return true;
}

bool Coding<std::int64_t>::encode(std::int64_t value, Json &json)
{
    json = value;
    return true;
}

bool Coding<std::int64_t>::decode(const Json &json, std::int64_t &value)
{
    if (!isWholeNumber(json)) {
        return false;
    }
    value = json.get<std::int64_t>();
    return true;
}

bool Coding<double>::encode(double value, Json &json)
{
    json = value;
    return std::isfinite(value);
}

bool Coding<double>::decode(const Json &json, double &value)
{
    if (!json.is_number()) {
        return false;
    }
    value = json.get<double>();
    return true;
}

bool Coding<std::string>::encode(const std::string &value, Json &json)
{
    json = value;
    return true;
}

bool Coding<std::string>::decode(const Json &json, std::string &value)
{
    if (!json.is_string()) {
        return false;
    }
    value = json.get_ref<const std::string &>();
    return true;
}

bool Coding<foundation::Date>::encode(foundation::Date value, Json &json)
{
    const auto seconds = foundation::secondsSinceReferenceDate(value);
    return foundation::dateFromReferenceSeconds(seconds) && Coding<double>::encode(seconds, json);
}

bool Coding<foundation::Date>::decode(const Json &json, foundation::Date &value)
{
    double seconds = 0;
    const bool isNumber = Coding<double>::decode(json, seconds);
    const auto date = foundation::dateFromReferenceSeconds(seconds);
    value = date.value_or(foundation::referenceDate);
    return isNumber && date.has_value();
}

} // namespace sharedcore

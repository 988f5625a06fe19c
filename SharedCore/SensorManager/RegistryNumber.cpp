#include "SharedCore/SensorManager/RegistryNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sharedcore {

namespace {

using Limits = std::numeric_limits<std::int32_t>;

std::int32_t wholePart(double number)
{
    return std::isnan(number)
               ? 0
               : static_cast<std::int32_t>(std::clamp<double>(number, Limits::min(), Limits::max()));
}

} // namespace

std::optional<double> doubleOf(const std::optional<platform::RegistryValue> &value)
{
    if (value && std::holds_alternative<double>(*value)) {
        return std::get<double>(*value);
    }
    if (value && std::holds_alternative<std::int64_t>(*value)) {
        return static_cast<double>(std::get<std::int64_t>(*value));
    }
    return std::nullopt;
}

std::optional<std::int32_t> int32Of(const std::optional<platform::RegistryValue> &value)
{
    if (value && std::holds_alternative<double>(*value)) {
        return wholePart(std::get<double>(*value));
    }
    if (value && std::holds_alternative<std::int64_t>(*value)) {
        return static_cast<std::int32_t>(std::get<std::int64_t>(*value));
    }
    return std::nullopt;
}

} // namespace sharedcore

// Numbers among what the registry of hardware tells. Private to the sensors.
#pragma once

#include "Platform/RegistryValue.h"

#include <cstdint>
#include <optional>

namespace sharedcore {

// Nothing where there is no value, and where it is no number.
[[nodiscard]] std::optional<double> doubleOf(const std::optional<platform::RegistryValue> &value);

// The same as 32 bits: of a whole number the lowest ones, of another the whole part, as far as it fits.
[[nodiscard]] std::optional<std::int32_t> int32Of(const std::optional<platform::RegistryValue> &value);

} // namespace sharedcore

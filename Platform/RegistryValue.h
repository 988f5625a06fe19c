// The words in which the registry of hardware speaks.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace platform {

// A service, and a connection to one, as the registry numbers them; 0 is none.
using RegistryService = std::uint32_t;
using RegistryConnection = std::uint32_t;

// What a driver answered: 0 where it succeeded, else a number of its own.
using RegistryResult = std::int32_t;
inline constexpr RegistryResult registrySuccess = 0;

// What a service says of itself under a name. A Boolean is no number.
using RegistryValue = std::variant<std::int64_t, double, bool, std::string>;

} // namespace platform

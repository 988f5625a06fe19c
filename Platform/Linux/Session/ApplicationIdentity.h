// The names under which the desktop knows the application.
#pragma once

namespace platform {

// The bus name, the desktop entry's name and the start of every name derived from them.
inline constexpr auto applicationId = "org.stirra.Stirra";
// The application id as an object path.
inline constexpr auto applicationPath = "/org/stirra/Stirra";

} // namespace platform

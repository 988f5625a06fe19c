// The names under which the desktop knows the application.
#pragma once

#include <QString>

namespace platform {

// The name of the program's desktop entry, which is its bus name too, and the start of every name derived
// from them: "org.stirra.Stirra". REQUIRES: the program has named its desktop entry.
[[nodiscard]] QString applicationId();
// The application id as an object path: "/org/stirra/Stirra".
[[nodiscard]] QString applicationPath();

} // namespace platform

// Whether the program runs apart from the rest of the user's session.
#pragma once

#include <QString>

#include <optional>

namespace platform {

// The name under which the desktop keeps what a program in a Flatpak or a strict Snap may do; nothing for a
// program that runs in neither. `flatpakInfo` is the file that Flatpak puts into each sandbox. Any thread.
[[nodiscard]] std::optional<QString>
sandboxedApplication(const QString &flatpakInfo = QStringLiteral("/.flatpak-info"));

} // namespace platform

// The application's icon for its window.
#pragma once

#include <QIcon>

namespace stirra {

// Drawn from the same file that the desktop shows for the application. Main thread.
[[nodiscard]] QIcon windowIcon();

} // namespace stirra

// Bringing a window to the front on X11.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QWindow;

namespace platform {

// The time of the user's act in an X11 startup id ("..._TIME123"); nothing where it has none.
[[nodiscard]] std::optional<std::uint32_t> timeInStartupId(const QString &startupId);

// Asks the window manager to activate a window that is shown, with the time of the user's act, and tells
// everybody who shows a busy pointer for the launch that it is over. Main thread; the toolkit runs on X11.
void activateXWindow(const QWindow &window, const QString &startupId);

// Asks the window manager to list a window that is shown in task bars and pagers, or not to. Main thread;
// nothing happens where the toolkit does not run on X11.
void listXWindow(const QWindow &window, bool isListed);

// The same for a window that is about to be shown, which must not be listed: before it is mapped, windows say
// so themselves.
void unlistHiddenXWindow(const QWindow &window);

} // namespace platform

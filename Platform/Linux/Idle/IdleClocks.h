// The idle clocks of Linux desktops.
#pragma once

#include "Platform/IdleClock.h"

#include <memory>

namespace platform {

// The first that answers: the X server's screen saver (not that of an X server inside a Wayland session,
// which sees its own windows' input only), mutter's IdleMonitor, the compositor's ext-idle-notify-v1 or
// org_kde_kwin_idle, the session bus's org.freedesktop.ScreenSaver. Waits for each at most half a second.
[[nodiscard]] std::unique_ptr<IdleClock> openIdleClock();

// Each by itself; nothing where it does not answer.
[[nodiscard]] std::unique_ptr<IdleClock> openXScreenSaverClock();
[[nodiscard]] std::unique_ptr<IdleClock> openMutterClock();
[[nodiscard]] std::unique_ptr<IdleClock> openCompositorClock();
[[nodiscard]] std::unique_ptr<IdleClock> openScreenSaverServiceClock();

} // namespace platform

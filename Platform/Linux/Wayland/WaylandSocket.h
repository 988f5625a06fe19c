// Where the session's Wayland compositor listens.
#pragma once

#include "Platform/Linux/FileDescriptor.h"

namespace platform {

// A new connection to the compositor that WAYLAND_DISPLAY names. Without the variable it is the default
// socket, unless there is an X display: a compositor that runs in a window of an X11 session is not the
// session. Closed where nobody answers. Never waits, and tries nothing where there is no socket.
[[nodiscard]] FileDescriptor connectToCompositor();

// Whether this is a Wayland session: its compositor answers.
[[nodiscard]] bool isWaylandSession();

} // namespace platform

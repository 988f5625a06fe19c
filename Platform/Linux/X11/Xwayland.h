// Telling a real X server from one that runs inside a Wayland session.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

namespace platform {

// Whether the server is Xwayland, which hands what is posted to it to X programs alone. Newer ones have an
// extension that says so; older ones (before 23.1) name their outputs XWAYLAND0 and so on. False where it
// does not answer.
[[nodiscard]] bool isXwayland(const XConnection &connection);

} // namespace platform

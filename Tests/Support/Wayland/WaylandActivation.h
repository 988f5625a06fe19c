// The right to activate a window, as a launcher gets it from the compositor.
#pragma once

#include "Tests/Support/Wayland/WaylandClient.h"

namespace testsupport {

// A new token of xdg-activation; empty where the compositor gives none.
[[nodiscard]] QString activationToken(const WaylandClient &client);

} // namespace testsupport

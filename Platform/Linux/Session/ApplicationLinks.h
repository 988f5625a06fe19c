// The choice between the session bus and the private socket.
#pragma once

#include "Platform/ApplicationLink.h"

#include <memory>

namespace platform {

// The session bus where there is one, else a socket in the user's runtime folder, one for each display.
[[nodiscard]] std::unique_ptr<ApplicationLink> makeApplicationLink(const QString &launchToken);

} // namespace platform

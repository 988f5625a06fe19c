// What the launcher's environment says to the process.
#pragma once

#include <QString>

namespace platform {

// The right to activation that the launcher gave this process, an X11 startup id or a Wayland token; empty
// where it gave none. Read by prepareProcess(), since the toolkit takes it out of the environment.
[[nodiscard]] QString launchToken();

} // namespace platform

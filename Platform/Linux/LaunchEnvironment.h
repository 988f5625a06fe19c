// What the launcher's environment says to the process, and what is begun before the application object
// exists.
#pragma once

#include <QString>

namespace platform {

// The right to activation that the launcher gave this process, an X11 startup id or a Wayland token; empty
// where it gave none. Read by prepareProcess(), since the toolkit takes it out of the environment.
[[nodiscard]] QString launchToken();

// Waits for the reader of fontconfig's files that prepareProcess() started; at once where it has ended. Must
// come before the application object's end, which takes the configuration apart.
void awaitFontConfiguration();

} // namespace platform

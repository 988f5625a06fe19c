// Whether windows are blended, on X11.
#pragma once

namespace platform {

// Whether a program draws the windows of the toolkit's screen together, so that they can be translucent.
// False where the toolkit does not run on X11. Main thread.
[[nodiscard]] bool isXComposited();

} // namespace platform

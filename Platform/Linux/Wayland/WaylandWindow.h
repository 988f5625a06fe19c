// The program's window on a Wayland compositor.
#pragma once

#include <QString>

class QWindow;

namespace platform {

// Whether the session's compositor gives windows their title bar and border. False on X11, and where the
// compositor does not answer within 200 ms. Needs no Qt application.
[[nodiscard]] bool compositorDrawsWindowFrames();

// Asks for the focus of a window that is shown, with the right to it that the token of the user's act gives.
// Main thread; on another system than Wayland the token means nothing.
void activateWindow(QWindow &window, const QString &activationToken);

} // namespace platform

// The X server of a Wayland session, of a test's own.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

namespace testsupport {

// Xwayland with a root window in the session of a compositor, on a display number that it picks. Started when
// made and ended when destroyed.
class PrivateXwayland
{
public:
    // Writes DISPLAY into the runtime's environment. REQUIRES: the environment names a compositor; the
    // runtime outlives it.
    explicit PrivateXwayland(PrivateRuntime &runtime);

    // Whether the server came up.
    [[nodiscard]] bool isOpen() const { return !display_.isEmpty(); }
    // The display's name, ":7" for instance.
    [[nodiscard]] QString display() const { return display_; }
    [[nodiscard]] ChildProcess &process() { return process_; }

private:
    ChildProcess process_;
    QString display_;
};

} // namespace testsupport

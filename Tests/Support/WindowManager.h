// A window manager on a private X server.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

namespace testsupport {

// openbox with its stock configuration: it follows the ICCCM and the EWMH. Started when made and ended when
// destroyed.
class WindowManager
{
public:
    // REQUIRES: the environment names a display.
    explicit WindowManager(const PrivateRuntime &runtime);

    // Whether it manages the display, and answers.
    [[nodiscard]] bool isOpen() const { return isOpen_; }

private:
    ChildProcess process_;
    bool isOpen_ = false;
};

} // namespace testsupport

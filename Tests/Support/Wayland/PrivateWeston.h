// A Wayland compositor without a screen, of a test's own, that lets nobody post input.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

namespace testsupport {

// weston, drawing into memory, without a seat. Started when made and ended when destroyed.
class PrivateWeston
{
public:
    // Writes WAYLAND_DISPLAY into the runtime's environment, an absolute path, and has Stirra post through
    // the compositor or not at all, so that nothing can reach the machine's own devices. REQUIRES: the
    // runtime outlives it.
    explicit PrivateWeston(PrivateRuntime &runtime);

    // Whether the compositor came up.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    // The path of its socket.
    [[nodiscard]] QString display() const { return display_; }
    [[nodiscard]] ChildProcess &process() { return process_; }

private:
    QString display_;
    ChildProcess process_;
    bool isOpen_ = false;
};

} // namespace testsupport

// The program that tells a Wayland session's other programs that nobody is there.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <chrono>

namespace testsupport {

// swayidle, which finds the session idle after the given whole seconds. Started when made and ended when
// destroyed.
class SwayIdle
{
public:
    // REQUIRES: the environment names a compositor.
    SwayIdle(const PrivateRuntime &runtime, std::chrono::seconds timeout);

    // How many times the session became idle, and how many times that was over.
    [[nodiscard]] qsizetype idleCount() const;
    [[nodiscard]] qsizetype resumeCount() const;
    [[nodiscard]] bool isIdle() const { return idleCount() > resumeCount(); }
    [[nodiscard]] ChildProcess &process() { return process_; }

private:
    ChildProcess process_;
};

} // namespace testsupport

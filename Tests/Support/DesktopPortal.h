// The real xdg-desktop-portal on a private bus.
#pragma once

#include "Tests/Support/PrivateBus.h"

namespace testsupport {

// Started when made and ended when destroyed.
class DesktopPortal
{
public:
    // REQUIRES: the runtime and the bus outlive it. The environment names the backend.
    DesktopPortal(const PrivateRuntime &runtime, const PrivateBus &bus);

    // Whether it has come to the bus.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] ChildProcess &process() { return process_; }

private:
    ChildProcess process_;
    bool isOpen_ = false;
};

} // namespace testsupport

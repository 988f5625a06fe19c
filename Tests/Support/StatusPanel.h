// A desktop's panel on a private X server and session bus.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <memory>

namespace testsupport {

// Xfce's panel at the top of the screen, light, 32 pixels high, with nothing in it but the items of programs:
// it is both the watcher and a host of StatusNotifierItem. Started when made and ended when destroyed. The
// items begin at the left.
class StatusPanel
{
public:
    static constexpr int height = 32;

    // REQUIRES: the environment names a display and a bus.
    explicit StatusPanel(const PrivateRuntime &runtime);

    // Whether it takes items in.
    [[nodiscard]] bool isOpen() const { return isOpen_; }

private:
    std::unique_ptr<ChildProcess> settings_; // the daemon that keeps the panel's settings
    std::unique_ptr<ChildProcess> panel_;
    bool isOpen_ = false;
};

} // namespace testsupport

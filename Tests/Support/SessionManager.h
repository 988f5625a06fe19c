// An X session manager on a private X server.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <memory>

namespace testsupport {

// xsm, with nothing in its session but what joins it. Started when made and ended when destroyed.
class SessionManager
{
public:
    // Writes SESSION_MANAGER into the runtime's environment. REQUIRES: the runtime outlives it, and its
    // environment names a display.
    explicit SessionManager(PrivateRuntime &runtime);

    // Whether programs can join the session.
    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // Asks every program of the session to save its state, and goes on.
    void saveSession();
    // Ends the session and with it every program in it, as a log-out does.
    void endSession();

private:
    std::unique_ptr<ChildProcess> process_;
    bool isOpen_ = false;
};

} // namespace testsupport

// An X server without a screen, of a test's own.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <memory>

namespace testsupport {

// Xvfb on a display number that the server picks, 1280 x 800, 24 bits deep. Started when made and ended when
// destroyed.
class PrivateXvfb
{
public:
    // Writes DISPLAY into the runtime's environment. REQUIRES: the runtime outlives it.
    // Further arguments of the server: {"-extension", "XTEST"} turns an extension off.
    explicit PrivateXvfb(PrivateRuntime &runtime, const QStringList &furtherArguments = {});

    // Whether the server came up.
    [[nodiscard]] bool isOpen() const { return !display_.isEmpty(); }
    // The display's name, ":7" for instance.
    [[nodiscard]] QString display() const { return display_; }
    [[nodiscard]] ChildProcess &process() { return *process_; }

private:
    std::unique_ptr<ChildProcess> process_;
    QString display_;
};

} // namespace testsupport

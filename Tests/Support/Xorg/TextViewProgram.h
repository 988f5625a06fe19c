// A text view of another program, under the pointer.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <vector>

namespace testsupport {

// Shows a long text in a window 640 x 480 at the upper left corner of the screen, with the named toolkit.
class TextViewProgram
{
public:
    enum class Toolkit { qtWidgets, qtQuick, gtk };

    // Starts at a fraction of the way down: 0 is the top and 1 is the bottom. REQUIRES: the environment names
    // a display.
    TextViewProgram(const PrivateRuntime &runtime, Toolkit toolkit, double fraction);

    // Waits until the window is shown and stands at its start.
    [[nodiscard]] bool isReady();
    // Where the text stands, in pixels from the top.
    [[nodiscard]] double position() const { return positions().back(); }
    // Every place where the text stood, the start first. REQUIRES: isReady() was true.
    [[nodiscard]] std::vector<double> positions() const;

private:
    ChildProcess process_;
};

} // namespace testsupport

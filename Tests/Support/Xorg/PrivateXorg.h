// A real X server without hardware, of a test's own.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/Xorg/InputTestDevice.h"

#include <memory>
#include <optional>

namespace testsupport {

// Xorg with the `dummy` video driver on a display number that the server picks, 1280 x 800, 24 bits deep,
// with three devices of the `inputtest` driver: two pointers, each with a horizontal and a vertical scroll
// axis (axes 2 and 3, 120 units a notch), and a keyboard. It is on a seat of its own name, so that it needs
// no console and leaves the machine's alone; no other device of the machine is taken. Any user may run it.
// Started when made and ended when destroyed.
class PrivateXorg
{
public:
    // Writes DISPLAY into the runtime's environment. REQUIRES: the runtime outlives it.
    explicit PrivateXorg(PrivateRuntime &runtime);

    // Whether the server came up, with its devices.
    [[nodiscard]] bool isOpen() const;
    // The display's name, ":7" for instance.
    [[nodiscard]] QString display() const { return display_; }
    [[nodiscard]] ChildProcess &process() { return *process_; }

    // The user's mouse, which no hand has touched when the server starts: until one is moved, the pointer on
    // the screen has the axes of no device.
    [[nodiscard]] InputTestDevice &mouse() { return *mouse_; }
    [[nodiscard]] InputTestDevice &secondMouse() { return *secondMouse_; }
    [[nodiscard]] InputTestDevice &keyboard() { return *keyboard_; }

private:
    void start(PrivateRuntime &runtime);

    std::unique_ptr<ChildProcess> process_;
    QString display_;
    std::optional<InputTestDevice> mouse_;
    std::optional<InputTestDevice> secondMouse_;
    std::optional<InputTestDevice> keyboard_;
};

} // namespace testsupport

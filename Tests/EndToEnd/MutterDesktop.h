// A Wayland desktop of a test's own that lets programs control its input through a portal.
#pragma once

#include "Tests/EndToEnd/WaylandDesktop.h"
#include "Tests/Support/HeadlessMutter.h"

#include <vector>

namespace endtoend {

// Input that came through the portal, and what the desktop's idle time was just before.
struct PortalInput
{
    testsupport::RemoteDesktopInput call;
    std::chrono::milliseconds idleBefore{};
    std::chrono::steady_clock::time_point takenAt;
};

// mutter and the buses. The portal is the test's choice, and the only way to post that Stirra may use.
class MutterDesktop
{
public:
    MutterDesktop();

    // Whether every server came up.
    [[nodiscard]] bool isOpen() const { return desktop_.isOpen() && mutter_.isOpen(); }

    [[nodiscard]] const WaylandDesktop &desktop() const { return desktop_; }
    [[nodiscard]] testsupport::PrivateRuntime &runtime() { return desktop_.runtime(); }
    [[nodiscard]] const testsupport::PrivateBus &bus() const { return desktop_.bus(); }
    [[nodiscard]] const testsupport::HeadlessMutter &mutter() const { return mutter_; }

    // Where the portal is to hand on its input.
    [[nodiscard]] testsupport::RemoteDesktopInputFunction inputFunction();
    // All that came, oldest first.
    [[nodiscard]] const std::vector<PortalInput> &inputs() const { return inputs_; }

    // Waits until so many inputs have come in all.
    [[nodiscard]] bool comesToHave(std::size_t count) const;
    // Waits for the next input. The idle time was over 5 s before it, and falls under 200 ms with it; false
    // where it does not.
    [[nodiscard]] bool becomesActive();

private:
    WaylandDesktop desktop_;
    testsupport::HeadlessMutter mutter_;
    std::vector<PortalInput> inputs_;
};

} // namespace endtoend

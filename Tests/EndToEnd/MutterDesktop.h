// A Wayland desktop with a portal, and Stirra running on it.
#pragma once

#include "Tests/Support/AccessibilityBus.h"
#include "Tests/Support/AccessibleProgram.h"
#include "Tests/Support/HeadlessMutter.h"

#include <optional>
#include <vector>

namespace endtoend {

// Input that came through the portal, and what the desktop's idle time was just before.
struct PortalInput
{
    testsupport::RemoteDesktopInput call;
    std::chrono::milliseconds idleBefore{};
    std::chrono::steady_clock::time_point takenAt;
};

// mutter, a session bus and an accessibility bus. The portal is the test's choice. Everything ends with it.
class MutterDesktop
{
public:
    MutterDesktop();

    // Whether every server came up.
    [[nodiscard]] bool isOpen() const;

    [[nodiscard]] testsupport::PrivateRuntime &runtime() { return runtime_; }
    [[nodiscard]] const testsupport::PrivateBus &bus() const { return bus_; }
    [[nodiscard]] const testsupport::HeadlessMutter &mutter() const { return mutter_; }
    // This process's connection to the accessibility bus.
    [[nodiscard]] QDBusConnection accessibility() const { return *accessibility_; }

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
    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateBus bus_;
    testsupport::AccessibilityBus accessibilityBus_;
    testsupport::HeadlessMutter mutter_;
    std::optional<QDBusConnection> accessibility_;
    std::vector<PortalInput> inputs_;
};

// The program under test, shown on mutter, which posts through the portal; and its accessible tree.
class MutterStirra
{
public:
    explicit MutterStirra(MutterDesktop &desktop);

    [[nodiscard]] testsupport::ChildProcess &process() { return process_; }
    [[nodiscard]] testsupport::AccessibleProgram &tree() { return tree_; }

    // Waits until the window shows exactly this text somewhere.
    [[nodiscard]] bool comesToShow(const QString &text,
                                   std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // Chooses the mode and the shortest interval, 15 seconds, and starts the engine.
    [[nodiscard]] bool startIn(const QString &mode);

private:
    testsupport::ChildProcess process_;
    testsupport::AccessibleProgram tree_;
};

// Longer than the shortest interval by what a busy machine may need.
inline constexpr std::chrono::seconds untilTheNextAction(25);

} // namespace endtoend

// A Wayland desktop of a test's own, and Stirra running on it.
#pragma once

#include "Tests/Support/AccessibilityBus.h"
#include "Tests/Support/AccessibleProgram.h"

#include <optional>

namespace endtoend {

// A session bus and an accessibility bus, for a compositor of the test's choice that is made with the runtime
// before any program is started.
class WaylandDesktop
{
public:
    WaylandDesktop();

    // Whether the buses came up.
    [[nodiscard]] bool isOpen() const { return bus_.isOpen() && accessibilityBus_.isOpen(); }
    [[nodiscard]] testsupport::PrivateRuntime &runtime() { return runtime_; }
    [[nodiscard]] const QProcessEnvironment &environment() const { return runtime_.environment(); }
    [[nodiscard]] const testsupport::PrivateBus &bus() const { return bus_; }
    // This process's connection to the accessibility bus. REQUIRES: isOpen().
    [[nodiscard]] QDBusConnection accessibility() const { return *accessibility_; }

private:
    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateBus bus_;
    testsupport::AccessibilityBus accessibilityBus_;
    std::optional<QDBusConnection> accessibility_;
};

// The program under test, and its accessible tree.
class WaylandStirra
{
public:
    // Starts the program; it needs some time to come up. Further variables of its environment can be given.
    explicit WaylandStirra(const WaylandDesktop &desktop, const QProcessEnvironment &further = {});

    [[nodiscard]] testsupport::ChildProcess &process() { return process_; }
    [[nodiscard]] testsupport::AccessibleProgram &tree() { return tree_; }

    // Waits until the window is in the accessible tree; says whether it is.
    [[nodiscard]] bool isUp() { return comesToShow(QStringLiteral("Stirra")); }
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
inline constexpr std::chrono::seconds moreThanAnInterval(25);

} // namespace endtoend

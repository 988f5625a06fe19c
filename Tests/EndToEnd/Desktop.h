// A desktop of a test's own, and Stirra running on it.
#pragma once

#include "Tests/Support/AccessibilityBus.h"
#include "Tests/Support/AccessibleProgram.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/WindowManager.h"
#include "Tests/Support/XObserver.h"

#include <memory>
#include <optional>
#include <ostream>

namespace endtoend {

// An X server with a window manager, a session bus and an accessibility bus. Made within a second; everything
// ends with it.
class Desktop
{
public:
    enum class Bus { session, none };

    // With Bus::none the programs find no session bus, and so no accessibility bus.
    // Further arguments of the X server can be given.
    explicit Desktop(Bus bus = Bus::session, const QStringList &serverArguments = {});

    // Whether every server came up.
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] bool hasSessionBus() const { return kind_ == Bus::session; }

    [[nodiscard]] QProcessEnvironment &environment() { return runtime_.environment(); }
    [[nodiscard]] testsupport::PrivateRuntime &runtime() { return runtime_; }
    [[nodiscard]] testsupport::PrivateXvfb &server() { return server_; }
    [[nodiscard]] testsupport::XObserver &observer() { return observer_; }
    [[nodiscard]] const testsupport::XClient &x() const { return observer_.client(); }
    [[nodiscard]] testsupport::PrivateBus &bus() { return bus_; }
    // This process's connection to the accessibility bus.
    [[nodiscard]] QDBusConnection accessibility() const { return *accessibility_; }

    // The windows titled "Stirra", hidden and closed ones not counted.
    [[nodiscard]] std::vector<xcb_window_t> stirraWindows() const;

private:
    Bus kind_;
    testsupport::PrivateRuntime runtime_;
    testsupport::PrivateXvfb server_;
    testsupport::XObserver observer_;
    testsupport::WindowManager manager_;
    testsupport::PrivateBus bus_;
    testsupport::AccessibilityBus accessibilityBus_;
    std::optional<QDBusConnection> accessibility_;
};

// The program under test, and its accessible tree.
class Stirra
{
public:
    // Starts the program; it needs some time to come up. Further variables of its environment can be given.
    explicit Stirra(Desktop &desktop, const QProcessEnvironment &further = {});

    [[nodiscard]] testsupport::ChildProcess &process() { return process_; }
    [[nodiscard]] testsupport::AccessibleProgram &tree() { return tree_; }

    // Waits until the one window is on the screen and, where there is a bus, in the accessible tree; says
    // whether it is.
    [[nodiscard]] bool isUp();
    // The window's identifier. REQUIRES: isUp() was true.
    [[nodiscard]] xcb_window_t window() const;
    // Waits until the window shows exactly this text somewhere.
    [[nodiscard]] bool comesToShow(const QString &text,
                                   std::chrono::milliseconds timeout = std::chrono::seconds(10));
    [[nodiscard]] bool shows(const QString &text) { return tree_.find(text).has_value(); }
    // Chooses the mode and the shortest interval, 15 seconds, and starts the engine.
    [[nodiscard]] bool startIn(const QString &mode);

private:
    Desktop &desktop_;
    testsupport::ChildProcess process_;
    testsupport::AccessibleProgram tree_;
};

// For the names of tests.
void PrintTo(Desktop::Bus bus, std::ostream *stream);

// The program's path.
[[nodiscard]] QString stirraPath();

// Longer than the shortest interval by what a busy machine may need.
inline constexpr std::chrono::seconds oneInterval(15);
inline constexpr std::chrono::seconds moreThanOneInterval(25);

} // namespace endtoend

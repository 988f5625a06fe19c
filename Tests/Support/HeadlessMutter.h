// A Wayland desktop without a screen, of a test's own.
#pragma once

#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/RemoteDesktopInput.h"

#include <chrono>
#include <optional>

namespace testsupport {

// mutter with one virtual monitor of 1280 x 800 and no X server. Started when made and ended when destroyed.
class HeadlessMutter
{
public:
    // Writes WAYLAND_DISPLAY into the runtime's environment. REQUIRES: the runtime and the bus outlive it.
    HeadlessMutter(PrivateRuntime &runtime, const PrivateBus &bus);
    ~HeadlessMutter();
    HeadlessMutter(const HeadlessMutter &) = delete;
    HeadlessMutter &operator=(const HeadlessMutter &) = delete;

    // Whether it came up, and input can be sent into it.
    [[nodiscard]] bool isOpen() const { return !inputSession_.isEmpty(); }

    // The path of its socket.
    [[nodiscard]] QString display() const { return display_; }

    // How long there has been no input, as its IdleMonitor tells it to programs.
    [[nodiscard]] std::optional<std::chrono::milliseconds> idleTime() const;
    // Waits until nothing was done for so long.
    [[nodiscard]] bool becomesIdle(std::chrono::milliseconds duration) const;

    // Hands on what a program sent through the portal, as the desktop's own part of the portal does.
    void take(const RemoteDesktopInput &input) const;

private:
    void send(const char *method, const QVariantList &arguments) const;
    [[nodiscard]] QDBusMessage call(const char *name, const QString &path, const char *interface,
                                    const char *method, const QVariantList &arguments = {}) const;
    [[nodiscard]] QString openInputSession() const;

    ChildProcess process_;
    QDBusConnection bus_;
    QString display_;
    QString inputSession_;
};

} // namespace testsupport

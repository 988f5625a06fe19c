// The one seam to the operating system. What stands above includes the headers of this folder only.
#pragma once

#include "Platform/ActivationPolicy.h"
#include "Platform/Appearance.h"
#include "Platform/ApplicationLink.h"
#include "Platform/InputPoster.h"
#include "Platform/Scheduler.h"

#include <memory>

class QWindow;

namespace platform {

// The services of the running system. Main thread. Each is opened on first use and lives as long as the
// platform.
class Platform
{
public:
    Platform() = default;
    Platform(const Platform &) = delete;
    Platform &operator=(const Platform &) = delete;
    virtual ~Platform() = default;

    [[nodiscard]] virtual Scheduler &scheduler() = 0;
    [[nodiscard]] virtual InputPoster &inputPoster() = 0;
    [[nodiscard]] virtual Appearance &appearance() = 0;
    [[nodiscard]] virtual ApplicationLink &applicationLink() = 0;

    // Shows the window, in front of the others and with the focus, as far as the desktop lets a program have
    // it. The token is what the user's act in another program gave for it; it may be empty.
    virtual void present(QWindow &window, const QString &activationToken) = 0;

    // Brings the application before the others: those of its windows that are visible come to the front, and
    // one of them takes the focus where none has it, as far as the desktop lets it. An application without a
    // visible window has nothing to bring.
    virtual void activate() = 0;

    // Regular until it is set. Holds for the windows that are visible and those that are shown later;
    // where the desktop has no way to say so (Wayland) its windows stay regular ones.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;

    // Whether a program knows and chooses where on the screen its windows are. On Wayland it does not.
    [[nodiscard]] virtual bool placesWindows() = 0;

    // The platform that the program runs on. REQUIRES: one is installed.
    [[nodiscard]] static Platform &current();
};

// Makes `platform` the current one for as long as the installation lives; the one before comes back after it.
class PlatformInstallation
{
public:
    explicit PlatformInstallation(Platform &platform);
    PlatformInstallation(const PlatformInstallation &) = delete;
    PlatformInstallation &operator=(const PlatformInstallation &) = delete;
    ~PlatformInstallation();

private:
    Platform *previous_;
};

// What must be settled before the application object exists: the drawing system and the launch's right to
// activation. What the user's environment says already stays. Call first thing in main().
void prepareProcess();

// The services of the operating system. REQUIRES: prepareProcess() was called, and a QGuiApplication lives.
[[nodiscard]] std::unique_ptr<Platform> makeNativePlatform();

} // namespace platform

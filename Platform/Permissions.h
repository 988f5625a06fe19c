// The service that knows what the user lets this program do. It is apart from Platform.h, in a library of its
// own: most programs of the family never ask.
#pragma once

#include <functional>
#include <memory>

namespace platform {

// The values are the numbers by which the states are commonly known.
enum class MicrophoneStatus {
    notDetermined = 0, // the user has not been asked
    restricted = 1,    // nobody may, by the system's settings
    denied = 2,
    authorized = 3,
};

// Main thread. Keeps nothing: each call asks the system anew.
class Permissions
{
public:
    // Called at most once, from any thread, and maybe before the request returns. A request that ends without
    // having called it lets go of it.
    using Answer = std::function<void(bool isGranted)>;

    Permissions() = default;
    Permissions(const Permissions &) = delete;
    Permissions &operator=(const Permissions &) = delete;
    virtual ~Permissions() = default;

    // Whether this program may post input, and listen to it, without anybody being asked. Asks nobody itself.
    [[nodiscard]] virtual bool isAccessibilityTrusted() = 0;
    // Where that is not so, and the system has a question for it, the user is asked. Returns at once.
    virtual void requestAccessibility() = 0;

    // Asks nobody. Takes no more than a second, whatever state the system's services are in.
    [[nodiscard]] virtual MicrophoneStatus microphoneStatus() = 0;
    // Asks the user where it is not determined. Returns at once. A service that does not answer is given 10
    // s, the user any time.
    virtual void requestMicrophone(Answer answer) = 0;

    // Full access to the user's events. Returns at once; the same times.
    virtual void requestCalendar(Answer answer) = 0;

    // The one that is installed; where none is, the operating system's.
    [[nodiscard]] static Permissions &current();
};

// Makes `permissions` the current ones for as long as the installation lives; those before come back after
// it.
class PermissionsInstallation
{
public:
    explicit PermissionsInstallation(Permissions &permissions);
    PermissionsInstallation(const PermissionsInstallation &) = delete;
    PermissionsInstallation &operator=(const PermissionsInstallation &) = delete;
    ~PermissionsInstallation();

private:
    Permissions *previous_;
};

// Those of the operating system. REQUIRES: an application object lives when they are used, and a platform is
// installed when accessibility is requested.
[[nodiscard]] std::unique_ptr<Permissions> makeNativePermissions();

} // namespace platform

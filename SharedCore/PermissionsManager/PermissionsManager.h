// What the user lets the application do, the questions for it, and the way to the settings.
#pragma once

#include <functional>
#include <string_view>

namespace sharedcore {

// Holds nothing: every query goes to the operating system afresh. Prints nothing and shows nothing itself;
// what is denied, and what fails, is false. Main thread. REQUIRES: an application object lives.
class PermissionsManager
{
public:
    // Called on the main thread, from its event loop, exactly once.
    using Callback = std::function<void(bool isGranted)>;

    // The one instance, made at its first use and never released.
    [[nodiscard]] static PermissionsManager &shared();

    PermissionsManager(const PermissionsManager &) = delete;
    PermissionsManager &operator=(const PermissionsManager &) = delete;

    // Whether the application may observe and post input. Asks nobody.
    [[nodiscard]] bool isAccessibilityGranted() const;
    // Has the system ask the user, where it is not granted and the system has a question for it. Returns at
    // once and tells no answer: isAccessibilityGranted() does, later. REQUIRES: a platform is installed
    // (Platform.h), in whose session the application will post.
    void requestAccessibility() const;

    // Whether the microphone may be used. False too as long as the user has not been asked. Asks nobody, and
    // takes no more than a second.
    [[nodiscard]] bool isMicrophoneGranted() const;
    // Has the system ask the user, where that has not been settled. Returns at once.
    void requestMicrophone(Callback callback) const;

    // Has the system ask the user for full access to calendar events. Returns at once.
    void requestCalendar(Callback callback) const;

    // Open the page of the system's settings where the user can grant it. What becomes of it is not told.
    void openAccessibilitySettings() const;
    void openInputMonitoringSettings() const;
    void openMicrophoneSettings() const;
    void openCalendarSettings() const;
    void openFullDiskAccessSettings() const;

private:
    PermissionsManager() = default;
    ~PermissionsManager() = default;

    void openSettings(std::string_view anchor) const;
};

} // namespace sharedcore

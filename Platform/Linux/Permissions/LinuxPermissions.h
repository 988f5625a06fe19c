// What the user of a Linux desktop lets this program do.
#pragma once

#include "Platform/Permissions.h"

#include <QDBusConnection>
#include <QString>

#include <chrono>
#include <optional>

namespace platform {

// Whom the desktop's answers come from.
struct PermissionSources
{
    QDBusConnection bus;                      // the session's
    std::optional<QString> sandbox;           // see sandboxedApplication()
    std::function<bool()> isTrusted;          // see Permissions::isAccessibilityTrusted()
    std::function<void()> askForInput;        // makes the desktop ask; returns at once
    std::chrono::milliseconds queryPatience;  // with a service that asks nobody
    std::chrono::milliseconds answerPatience; // with a service, in all, until it has the user asked
};

// The microphone is everybody's, but where the desktop's privacy switch is off (GNOME's, told by the Settings
// portal) it is nobody's, and in a sandbox the portals' permission store says who may. A service that is not
// there, or does not answer, forbids nothing: then the sound server does, or nobody.
//
// The calendar is Evolution Data Server's, which the bus starts where it is installed. Main thread;
// microphoneStatus() any thread.
class LinuxPermissions final : public Permissions
{
public:
    explicit LinuxPermissions(PermissionSources sources);

    [[nodiscard]] bool isAccessibilityTrusted() override;
    void requestAccessibility() override;
    [[nodiscard]] MicrophoneStatus microphoneStatus() override;
    void requestMicrophone(Answer answer) override;
    void requestCalendar(Answer answer) override;

private:
    PermissionSources sources_;
};

} // namespace platform

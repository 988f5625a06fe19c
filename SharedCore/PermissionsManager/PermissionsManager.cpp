#include "SharedCore/PermissionsManager/PermissionsManager.h"

#include "Platform/LinkOpener.h"
#include "Platform/Permissions.h"
#include "SharedCore/PermissionsManager/MainThreadAnswer.h"
#include "SharedCore/PermissionsManager/SettingsLink.h"

#include <utility>

namespace sharedcore {

using platform::Permissions;

PermissionsManager &PermissionsManager::shared()
{
    static auto &instance = *new PermissionsManager;
    return instance;
}

bool PermissionsManager::isAccessibilityGranted() const
{
    return Permissions::current().isAccessibilityTrusted();
}

void PermissionsManager::requestAccessibility() const
{
    Permissions::current().requestAccessibility();
}

bool PermissionsManager::isMicrophoneGranted() const
{
    return Permissions::current().microphoneStatus() == platform::MicrophoneStatus::authorized;
}

void PermissionsManager::requestMicrophone(Callback callback) const
{
    Permissions::current().requestMicrophone(mainThreadAnswer(std::move(callback)));
}

void PermissionsManager::requestCalendar(Callback callback) const
{
    Permissions::current().requestCalendar(mainThreadAnswer(std::move(callback)));
}

void PermissionsManager::openAccessibilitySettings() const
{
    openSettings("Privacy_Accessibility");
}

void PermissionsManager::openInputMonitoringSettings() const
{
    openSettings("Privacy_ListenEvent");
}

void PermissionsManager::openMicrophoneSettings() const
{
    openSettings("Privacy_Microphone");
}

void PermissionsManager::openCalendarSettings() const
{
    openSettings("Privacy_Calendars");
}

void PermissionsManager::openFullDiskAccessSettings() const
{
    openSettings("Privacy_AllFiles");
}

void PermissionsManager::openSettings(std::string_view anchor) const
{
    platform::LinkOpener::current().open(settingsLink(anchor));
}

} // namespace sharedcore

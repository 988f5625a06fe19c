#include "Platform/Linux/Permissions/SettingsPages.h"

#include <QStandardPaths>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

struct Page
{
    const char *anchor;
    const char *program;
    std::vector<const char *> arguments = {};
};

struct DesktopSettings
{
    const char *desktop; // in XDG_CURRENT_DESKTOP
    bool worksElsewhere;
    std::vector<Page> pages; // of those for an anchor, the first that is installed
};

// None of the desktops has pages for all of it. What a program may do is where GNOME lists its applications
// and Plasma the permissions of Flatpaks; events are read from the calendars of the online accounts.
const std::vector<DesktopSettings> &allSettings()
{
    static const std::vector<DesktopSettings> settings{
        {"GNOME",
         false, // gnome-control-center refuses to start
         {{"Privacy_Accessibility", "gnome-control-center", {"applications"}},
          {"Privacy_ListenEvent", "gnome-control-center", {"applications"}},
          {"Privacy_Microphone", "gnome-control-center", {"microphone"}},
          {"Privacy_Calendars", "gnome-control-center", {"online-accounts"}},
          {"Privacy_AllFiles", "gnome-control-center", {"applications"}}}},
        {"KDE",
         true,
         {{"Privacy_Accessibility", "systemsettings", {"kcm_flatpak"}},
          {"Privacy_ListenEvent", "systemsettings", {"kcm_flatpak"}},
          {"Privacy_Microphone", "systemsettings", {"kcm_pulseaudio"}},
          {"Privacy_Calendars", "systemsettings", {"kcm_kaccounts"}},
          {"Privacy_AllFiles", "systemsettings", {"kcm_flatpak"}}}},
        {"XFCE",
         true,
         {{"Privacy_Accessibility", "xfce4-accessibility-settings"},
          {"Privacy_Accessibility", "xfce4-settings-manager"},
          {"Privacy_ListenEvent", "xfce4-keyboard-settings"},
          {"Privacy_ListenEvent", "xfce4-settings-manager"},
          {"Privacy_Microphone", "pavucontrol", {"--tab=4"}}, // the input devices
          {"Privacy_Microphone", "xfce4-settings-manager"},
          {"Privacy_Calendars", "xfce4-settings-manager"},
          {"Privacy_AllFiles", "xfce4-settings-manager"}}},
    };
    return settings;
}

std::optional<SettingsCommand> installedCommand(const DesktopSettings &settings, const QString &anchor)
{
    for (const auto &page : settings.pages) {
        const auto program = QStandardPaths::findExecutable(QString::fromLatin1(page.program));
        if (anchor == QLatin1String(page.anchor) && !program.isEmpty()) {
            QStringList arguments;
            std::ranges::transform(page.arguments, std::back_inserter(arguments),
                                   [](const char *argument) { return QString::fromLatin1(argument); });
            return SettingsCommand{program, arguments};
        }
    }
    return std::nullopt;
}

bool isRunning(const DesktopSettings &settings)
{
    const auto desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    return desktops.contains(QLatin1String(settings.desktop), Qt::CaseInsensitive);
}

} // namespace

std::optional<SettingsCommand> settingsCommand(const QString &anchor)
{
    for (const bool isOwn : {true, false}) {
        for (const auto &settings : allSettings()) {
            const bool isTried = isOwn ? isRunning(settings) : settings.worksElsewhere;
            auto command = isTried ? installedCommand(settings, anchor) : std::nullopt;
            if (command) {
                return command;
            }
        }
    }
    return std::nullopt;
}

} // namespace platform

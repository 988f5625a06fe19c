// Which settings open for a link, by what is installed.

#include "Platform/Linux/Permissions/SettingsPages.h"
#include "Tests/Platform/Permissions/PrivateProgramFolder.h"
#include "Tests/Support/QtPrinting.h"

namespace platform {

namespace {

const char *const anchors[] = {"Privacy_Accessibility", "Privacy_ListenEvent", "Privacy_Microphone",
                               "Privacy_Calendars", "Privacy_AllFiles"};

} // namespace

class SettingsPagesTest : public testing::Test
{
protected:
    ~SettingsPagesTest() override { qunsetenv("XDG_CURRENT_DESKTOP"); }

    // The program and the arguments for an anchor, or for each; empty where there is no command.
    static QStringList command(const char *anchor)
    {
        const auto command = settingsCommand(QString::fromLatin1(anchor));
        return command ? QStringList(command->program.section(QLatin1Char('/'), -1)) + command->arguments
                       : QStringList();
    }
    static QStringList commands()
    {
        QStringList all;
        for (const char *anchor : anchors) {
            all.append(command(anchor).join(QLatin1Char(' ')));
        }
        return all;
    }

    static QStringList words(const char *text)
    {
        return QString::fromLatin1(text).split(QStringLiteral(", "));
    }

    PrivateProgramFolder programs;
};

TEST_F(SettingsPagesTest, GnomeHasAPageForEachAnchor)
{
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    programs.install("gnome-control-center");
    programs.install("systemsettings");
    EXPECT_EQ(commands(), words("gnome-control-center applications, gnome-control-center applications, "
                                "gnome-control-center microphone, gnome-control-center online-accounts, "
                                "gnome-control-center applications"));
    EXPECT_EQ(settingsCommand(QStringLiteral("Privacy_AllFiles"))->program,
              programs.path("gnome-control-center"));
}

TEST_F(SettingsPagesTest, PlasmaHasAPageForEachAnchor)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    programs.install("gnome-control-center");
    programs.install("systemsettings");
    programs.install("xfce4-settings-manager");
    EXPECT_EQ(commands(), words("systemsettings kcm_flatpak, systemsettings kcm_flatpak, "
                                "systemsettings kcm_pulseaudio, systemsettings kcm_kaccounts, "
                                "systemsettings kcm_flatpak"));
}

TEST_F(SettingsPagesTest, XfceHasProgramsOfTheirOwnAndAManagerForTheRest)
{
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    programs.install("xfce4-settings-manager");
    programs.install("systemsettings");
    EXPECT_EQ(commands(), QStringList(5, QStringLiteral("xfce4-settings-manager")));
    programs.install("xfce4-accessibility-settings");
    programs.install("xfce4-keyboard-settings");
    programs.install("pavucontrol");
    EXPECT_EQ(commands(), words("xfce4-accessibility-settings, xfce4-keyboard-settings, pavucontrol --tab=4, "
                                "xfce4-settings-manager, xfce4-settings-manager"));
}

TEST_F(SettingsPagesTest, OnAnotherDesktopSettingsThatWorkThereAreTaken)
{
    programs.install("gnome-control-center");
    EXPECT_EQ(command("Privacy_Microphone"), QStringList());
    programs.install("xfce4-settings-manager");
    for (const char *desktop : {"", "sway", "GNOMEish:X-Other"}) {
        qputenv("XDG_CURRENT_DESKTOP", desktop);
        EXPECT_EQ(command("Privacy_Microphone"), words("xfce4-settings-manager")) << desktop;
    }
    qputenv("XDG_CURRENT_DESKTOP", "KDE"); // whose own are not installed
    EXPECT_EQ(command("Privacy_Microphone"), words("xfce4-settings-manager"));
}

TEST_F(SettingsPagesTest, WithoutSettingsOrForAnAnchorThatIsNotKnownThereIsNone)
{
    EXPECT_EQ(commands(), QStringList(5, QString()));
    programs.install("systemsettings");
    for (const char *anchor : {"", "Privacy_Camera", "privacy_microphone", "Privacy_Microphone "}) {
        EXPECT_EQ(command(anchor), QStringList()) << anchor;
    }
}

} // namespace platform

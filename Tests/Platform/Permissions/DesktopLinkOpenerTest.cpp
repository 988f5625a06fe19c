// Where links go: the desktop's settings, the portal, and the program that opens anything.

#include "Platform/Linux/Permissions/DesktopLinkOpener.h"
#include "Tests/Platform/Permissions/PrivateProgramFolder.h"
#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeBusService.h"
#include "Tests/Support/QtPrinting.h"

#include <QDBusObjectPath>

#include <optional>

namespace platform {

using testsupport::eventually;

namespace {

constexpr auto microphoneLink = "x-apple.systempreferences:com.apple.preference.security?Privacy_Microphone";

} // namespace

class DesktopLinkOpenerTest : public testing::Test
{
protected:
    ~DesktopLinkOpenerTest() override { qunsetenv("XDG_CURRENT_DESKTOP"); }

    // The portal, which takes every link.
    void startPortal()
    {
        portal.emplace(testsupport::sessionBus(), "org.freedesktop.portal.Desktop");
        portal->answer("OpenURI", {QVariant::fromValue(QDBusObjectPath(QStringLiteral("/request")))});
    }

    // Whether the portal comes to be given this link.
    [[nodiscard]] bool isGiven(const char *link) const
    {
        return eventually([&] {
            const auto calls = portal->calls("OpenURI");
            return !calls.empty() && calls.back().arguments().value(1) == QString::fromLatin1(link);
        });
    }

    // Whether a program comes to be started with these arguments.
    [[nodiscard]] bool isStarted(const char *program, const char *argument) const
    {
        return eventually([&] {
            return programs.record() ==
                   QStringList{QString::fromLatin1(program), QString::fromLatin1(argument)};
        });
    }

    PrivateProgramFolder programs;
    std::optional<testsupport::FakeBusService> portal;
    DesktopLinkOpener opener{QDBusConnection::sessionBus()};
};

TEST_F(DesktopLinkOpenerTest, AnAnchorOpensItsPageOfTheDesktopsSettings)
{
    startPortal();
    qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    programs.install("gnome-control-center");
    opener.open(microphoneLink);
    EXPECT_TRUE(isStarted("gnome-control-center", "microphone"));
    EXPECT_TRUE(portal->calls("OpenURI").empty());
}

TEST_F(DesktopLinkOpenerTest, WithoutSettingsThePortalGetsTheLinkAsItIs)
{
    startPortal();
    programs.install("xdg-open");
    opener.open(microphoneLink);
    EXPECT_TRUE(isGiven(microphoneLink));
    opener.open("https://example.org/?a=b#c");
    EXPECT_TRUE(isGiven("https://example.org/?a=b#c"));
    EXPECT_EQ(programs.record(), QStringList());
}

TEST_F(DesktopLinkOpenerTest, SettingsThatCannotBeStartedAreNone)
{
    startPortal();
    programs.installBroken("systemsettings");
    opener.open(microphoneLink);
    EXPECT_TRUE(isGiven(microphoneLink));
}

TEST_F(DesktopLinkOpenerTest, WithoutAPortalTheProgramThatOpensAnythingGetsTheLinkAsItIs)
{
    programs.install("xdg-open");
    opener.open(microphoneLink);
    EXPECT_TRUE(isStarted("xdg-open", microphoneLink));
    const auto *const link = "https://example.org/$(reboot);'%22&|x";
    opener.open(link);
    EXPECT_TRUE(isStarted("xdg-open", link));
}

TEST_F(DesktopLinkOpenerTest, APortalThatRefusesOrIsSilentIsNone)
{
    programs.install("xdg-open");
    startPortal();
    portal->refuse("OpenURI", "org.freedesktop.portal.Error.NotAllowed");
    opener.open("https://example.org/refused");
    EXPECT_TRUE(isStarted("xdg-open", "https://example.org/refused"));
    portal->ignore("OpenURI");
    DesktopLinkOpener(QDBusConnection::sessionBus(), std::chrono::milliseconds(50))
        .open("https://example.org/silent");
    EXPECT_TRUE(isStarted("xdg-open", "https://example.org/silent"));
}

TEST_F(DesktopLinkOpenerTest, WithoutABusTheProgramIsStarted)
{
    programs.install("xdg-open");
    DesktopLinkOpener(QDBusConnection(QStringLiteral("to nowhere"))).open(microphoneLink);
    EXPECT_TRUE(isStarted("xdg-open", microphoneLink));
}

TEST_F(DesktopLinkOpenerTest, WhereNothingOpensLinksNothingHappens)
{
    opener.open(microphoneLink);
    startPortal();
    opener.open("https://example.org/later"); // the first one's answer has come before this one is taken
    EXPECT_TRUE(isGiven("https://example.org/later"));
    EXPECT_EQ(programs.record(), QStringList());
}

} // namespace platform

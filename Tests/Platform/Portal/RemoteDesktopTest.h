// What the tests of posting through the RemoteDesktop portal have in common.
#pragma once

#include "Platform/Linux/Portal/PortalInputPoster.h"

#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeRemoteDesktopPortal.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace platform {

// A portal in the test's hands, and a poster that has a token file of its own.
class RemoteDesktopTest : public testing::Test
{
protected:
    using Portal = testsupport::FakeRemoteDesktopPortal;
    using Answer = Portal::Answer;

    void SetUp() override
    {
        ASSERT_TRUE(testsupport::sessionBus().isOpen());
        settings.token = RemoteDesktopToken(tokenFile());
        openPoster();
    }

    // Before it: none. A second one takes the place of the first.
    void startPortal(const Portal::Script &script = {});
    // A poster that knows of no portal yet, as at the program's start.
    void openPoster();
    // Both, and a session that runs.
    void runSession(const Portal::Script &script = {});

    [[nodiscard]] bool comesToBeReady() const;
    [[nodiscard]] bool comesToBeClosed() const;
    // Waits until the obstacle's reason has this text in it.
    [[nodiscard]] bool comesToSay(const char *reason) const;
    // Waits until the portal has handled all that was sent to it. REQUIRES: it is not silent.
    [[nodiscard]] static bool settles();
    // Posts a move until a session was asked for so often in all.
    [[nodiscard]] bool asksAgain(int sessionCount) const;
    // Posts moves in vain; says whether all were refused, and no session was asked for.
    [[nodiscard]] bool postsInVain(int count) const;

    // All that the engine posts.
    [[nodiscard]] static std::vector<std::vector<InputEvent>> everyAction();

    [[nodiscard]] QString tokenFile() const { return folder.filePath(QStringLiteral("state/token")); }
    [[nodiscard]] bool move(double x, double y) const { return poster->post(MouseMoved{{x, y}}); }

    QTemporaryDir folder;
    std::optional<Portal> portal;
    PortalSettings settings;
    FallbackInputPoster::Candidate candidate;
    Obstacle why;
    std::unique_ptr<InputPoster> poster;
};

} // namespace platform

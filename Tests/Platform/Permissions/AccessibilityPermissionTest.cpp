// The question for input.

#include "Platform/Linux/Permissions/LinuxPermissions.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Platform/Portal/RemoteDesktopTest.h"

namespace platform {

using testsupport::eventually;

TEST(AccessibilityPermissionTest, OnlyARequestAsksAndOnlyWithoutTrust)
{
    bool isTrusted = false;
    int questionCount = 0;
    LinuxPermissions permissions({.bus = QDBusConnection::sessionBus(),
                                  .sandbox = std::nullopt,
                                  .isTrusted = [&] { return isTrusted; },
                                  .askForInput = [&] { ++questionCount; },
                                  .queryPatience = {},
                                  .answerPatience = {}});
    EXPECT_FALSE(permissions.isAccessibilityTrusted());
    EXPECT_EQ(questionCount, 0);
    permissions.requestAccessibility();
    EXPECT_EQ(questionCount, 1);
    permissions.requestAccessibility();
    EXPECT_EQ(questionCount, 2);
    isTrusted = true;
    EXPECT_TRUE(permissions.isAccessibilityTrusted());
    permissions.requestAccessibility();
    EXPECT_EQ(questionCount, 2);
}

TEST(AccessibilityPermissionTest, TheSystemsPermissionsAskThroughTheSessionThatTheApplicationPostsIn)
{
    fakes::FakePlatform platform;
    qputenv("STIRRA_INPUT_BACKEND", "none"); // nothing may be posted unasked
    const auto permissions = makeNativePermissions();
    EXPECT_FALSE(permissions->isAccessibilityTrusted());
    EXPECT_EQ(platform.inputPoster().preparationCount, 0);
    permissions->requestAccessibility();
    EXPECT_EQ(platform.inputPoster().preparationCount, 1);
    qunsetenv("STIRRA_INPUT_BACKEND");
}

class AccessibilityPortalTest : public RemoteDesktopTest
{
protected:
    // Asks where the portal is the way to post, and nothing is trusted.
    LinuxPermissions permissions{{.bus = QDBusConnection::sessionBus(),
                                  .sandbox = std::nullopt,
                                  .isTrusted = [] { return false; },
                                  .askForInput = [this] { poster->prepare(); },
                                  .queryPatience = {},
                                  .answerPatience = {}}};
};

TEST_F(AccessibilityPortalTest, TheDesktopShowsItsQuestionOncePerCall)
{
    startPortal({.toQuestion = Answer::refuse});
    for (int call = 1; call <= 3; ++call) {
        permissions.requestAccessibility();
        ASSERT_TRUE(eventually([&] { return portal->questionCount() == call; }));
        ASSERT_TRUE(comesToSay("was denied"));
    }
    ASSERT_TRUE(settles());
    EXPECT_EQ(portal->questionCount(), 3);
}

TEST_F(AccessibilityPortalTest, ABrokenOrAbsentPortalIsNoObstacle)
{
    permissions.requestAccessibility(); // no portal
    ASSERT_TRUE(comesToBeClosed());
    openPoster();
    startPortal({.isSilent = true});
    permissions.requestAccessibility();
    ASSERT_TRUE(eventually([this] { return portal->callCount() > 0; }));
    EXPECT_FALSE(poster->isReady());
}

} // namespace platform

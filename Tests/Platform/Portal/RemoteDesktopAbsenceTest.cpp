// What becomes of posting on a desktop without a portal that could be used.

#include "Tests/Fakes/RecordingInputPoster.h"
#include "Tests/Platform/Portal/RemoteDesktopTest.h"

namespace platform {

using testing::ElementsAre;
using testsupport::eventually;

class RemoteDesktopAbsenceTest : public RemoteDesktopTest
{
protected:
    // The candidate makes no poster, for this reason.
    [[nodiscard]] bool isUnavailable(const char *reason)
    {
        return candidate(why) == nullptr && why.reason.contains(QString::fromLatin1(reason)) &&
               !why.remedy.isEmpty();
    }

    // Another portal takes the place of one that could not be used, and the next use finds it.
    void comesBackWith(const Portal::Script &script)
    {
        startPortal(script);
        ASSERT_TRUE(eventually([this] { return (poster = candidate(why)) != nullptr; }));
        poster->prepare();
        EXPECT_TRUE(comesToBeReady());
    }
};

TEST_F(RemoteDesktopAbsenceTest, WithoutAPortalThePosterClosesAndNoneIsMadeUntilOneAppears)
{
    poster->prepare();
    EXPECT_TRUE(poster->isOpen());
    ASSERT_TRUE(comesToBeClosed());
    EXPECT_FALSE(move(1, 1));
    EXPECT_TRUE(isUnavailable("No desktop portal"));
    comesBackWith({});
}

TEST_F(RemoteDesktopAbsenceTest, APortalWithoutRemoteDesktopIsNone)
{
    startPortal({.hasRemoteDesktop = false});
    poster->prepare();
    ASSERT_TRUE(comesToBeClosed());
    EXPECT_TRUE(isUnavailable("offers no remote desktop"));
    comesBackWith({});
}

TEST_F(RemoteDesktopAbsenceTest, APortalThatLacksADeviceIsNone)
{
    for (const unsigned devices : {0U, 1U, 2U, 4U}) {
        openPoster();
        startPortal({.deviceTypes = devices});
        poster->prepare();
        ASSERT_TRUE(comesToBeClosed()) << devices;
        EXPECT_TRUE(isUnavailable("cannot control keyboard and pointer"));
        EXPECT_EQ(portal->sessionCount(), 0);
        poster.reset();
    }
    openPoster();
    runSession({.deviceTypes = 3});
}

TEST_F(RemoteDesktopAbsenceTest, APosterThatNobodyReplacedWorksWithThePortalThatAppears)
{
    poster->prepare();
    ASSERT_TRUE(comesToBeClosed());
    startPortal();
    ASSERT_TRUE(eventually([&] { return poster->isOpen(); }));
    EXPECT_FALSE(move(1, 1));
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopAbsenceTest, WithoutAPortalTheNextWayToPostIsUsed)
{
    std::vector<InputEvent> posted;
    const auto openOther = [&posted](Obstacle & /*why*/) {
        auto other = std::make_unique<fakes::RecordingInputPoster>();
        other->cannotMake = [&posted](const InputEvent &event) {
            posted.push_back(event);
            return false;
        };
        return other;
    };
    FallbackInputPoster fallback({PortalInputPoster::candidate(settings), openOther});
    fallback.prepare();
    EXPECT_FALSE(fallback.isReady());
    const ScrollPixels event{1};
    EXPECT_TRUE(eventually([&] { return fallback.post(event); }));
    EXPECT_THAT(posted, ElementsAre(InputEvent(event)));
}

} // namespace platform

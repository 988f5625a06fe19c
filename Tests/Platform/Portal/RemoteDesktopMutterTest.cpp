// Posting into a real desktop: through the real portal, which is of version 1, and through one of version 2.

#include "Tests/Platform/Portal/RemoteDesktopTest.h"
#include "Tests/Support/DesktopPortal.h"
#include "Tests/Support/HeadlessMutter.h"
#include "Tests/Support/PortalBackend.h"

namespace platform {

using testsupport::DesktopPortal;
using testsupport::eventually;
using testsupport::HeadlessMutter;
using testsupport::PortalBackend;
using testsupport::RemoteDesktopInput;
using testsupport::sessionBus;
using testsupport::sessionRuntime;
using namespace std::chrono_literals;

namespace {

constexpr auto idleEnough = 1000ms;
constexpr auto atOnce = 200ms;

} // namespace

class RemoteDesktopMutterTest : public RemoteDesktopTest
{
protected:
    void SetUp() override
    {
        RemoteDesktopTest::SetUp();
        mutter.emplace(sessionRuntime(), sessionBus());
        ASSERT_TRUE(mutter->isOpen());
        qputenv("WAYLAND_DISPLAY", mutter->display().toLocal8Bit());
        openPoster();
    }

    void startRealPortal()
    {
        auto &runtime = sessionRuntime();
        ASSERT_TRUE(PortalBackend::announce(runtime.path(QStringLiteral("portals")), runtime.environment()));
        backend.emplace(sessionBus());
        ASSERT_TRUE(backend->isOpen());
        backend->onInput([this](const RemoteDesktopInput &input) { take(input); });
        realPortal.emplace(runtime, sessionBus());
        ASSERT_TRUE(realPortal->isOpen()) << realPortal->process().standardError().toStdString();
    }

    void take(const RemoteDesktopInput &input)
    {
        mutter->take(input);
        ++inputCount;
    }

    // The desktop's idle time falls with the action; what a busy desktop took to say so counts from there.
    void expectActivity(const std::vector<InputEvent> &action)
    {
        ASSERT_TRUE(mutter->becomesIdle(idleEnough));
        const auto start = std::chrono::steady_clock::now();
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
        }
        EXPECT_TRUE(eventually([&] {
            const auto idle = mutter->idleTime();
            return idle && *idle <= std::chrono::steady_clock::now() - start + atOnce;
        }));
    }

    void expectEveryActionIsActivity()
    {
        for (const auto &action : everyAction()) {
            expectActivity(action);
        }
        EXPECT_TRUE(eventually([this] { return inputCount == 8; }));
    }

    void expectNoPortal(const char *reason)
    {
        ASSERT_TRUE(realPortal->isOpen());
        poster->prepare();
        ASSERT_TRUE(comesToBeClosed());
        EXPECT_EQ(candidate(why), nullptr);
        EXPECT_TRUE(why.reason.contains(QString::fromLatin1(reason))) << why.reason.toStdString();
    }

    std::optional<HeadlessMutter> mutter;
    std::optional<PortalBackend> backend;
    std::optional<DesktopPortal> realPortal;
    int inputCount = 0;
};

TEST_F(RemoteDesktopMutterTest, EveryActionResetsTheIdleTimeThroughTheRealPortal)
{
    startRealPortal();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    EXPECT_EQ(backend->questionCount(), 1);
    EXPECT_EQ(backend->deviceTypes(), 3U);
    expectEveryActionIsActivity();
    EXPECT_EQ(backend->questionCount(), 1);
}

TEST_F(RemoteDesktopMutterTest, EveryActionResetsTheIdleTimeThroughAPortalOfVersionTwoThatTakesTheToken)
{
    runSession();
    openPoster();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    EXPECT_EQ(portal->questionCount(), 1);
    portal->onInput([this](const RemoteDesktopInput &input) { take(input); });
    expectEveryActionIsActivity();
}

TEST_F(RemoteDesktopMutterTest, ARealPortalThatSaysNoIsNotAskedTwice)
{
    startRealPortal();
    backend->setAnswer(PortalBackend::Answer::refuse);
    poster->prepare();
    ASSERT_TRUE(comesToSay("was denied"));
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(move(1, 1));
        EXPECT_TRUE(settles());
    }
    EXPECT_EQ(backend->questionCount(), 1);
    EXPECT_EQ(inputCount, 0);
    backend->setAnswer(PortalBackend::Answer::grant);
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    expectActivity(everyAction().front());
}

TEST_F(RemoteDesktopMutterTest, ASessionThatTheDesktopClosesIsOpenedAgainThroughTheRealPortal)
{
    startRealPortal();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    backend->closeSession();
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_FALSE(move(1, 1));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_EQ(backend->questionCount(), 2);
    expectActivity(everyAction().front());
}

TEST_F(RemoteDesktopMutterTest, ARealPortalThatIsKilledIsUsedAgainWhenItIsBack)
{
    startRealPortal();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    realPortal->process().sendSignal(SIGKILL);
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_FALSE(move(1, 1));
    ASSERT_TRUE(comesToBeClosed()); // nothing starts it here
    realPortal.emplace(sessionRuntime(), sessionBus());
    ASSERT_TRUE(realPortal->isOpen());
    ASSERT_TRUE(eventually([this] { return poster->isOpen(); }));
    EXPECT_FALSE(move(1, 1));
    ASSERT_TRUE(comesToBeReady());
    expectActivity(everyAction().front());
}

TEST_F(RemoteDesktopMutterTest, ARealPortalWithoutABackendIsNone)
{
    auto &runtime = sessionRuntime();
    runtime.environment().insert(QStringLiteral("XDG_DESKTOP_PORTAL_DIR"), runtime.runtimeFolder());
    realPortal.emplace(runtime, sessionBus());
    expectNoPortal("offers no remote desktop");
}

TEST_F(RemoteDesktopMutterTest, ARealPortalWhoseBackendDoesNotComeUpIsNone)
{
    auto &runtime = sessionRuntime();
    ASSERT_TRUE(PortalBackend::announce(runtime.path(QStringLiteral("portals")), runtime.environment()));
    realPortal.emplace(runtime, sessionBus());
    expectNoPortal("cannot control keyboard and pointer");
}

TEST_F(RemoteDesktopMutterTest, EndingThePosterEndsTheSessionInTheRealPortal)
{
    startRealPortal();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    poster.reset();
    EXPECT_TRUE(eventually([this] { return backend->closedCount() == 1; }));
}

} // namespace platform

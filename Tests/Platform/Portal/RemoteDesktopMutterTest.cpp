// Posting into a real desktop: through the real portal, which is of version 1, and through one of version 2.

#include "Tests/Platform/Portal/RemoteDesktopTest.h"
#include "Tests/Support/DesktopPortal.h"
#include "Tests/Support/HeadlessMutter.h"
#include "Tests/Support/PortalBackend.h"
#include "Tests/Support/Wayland/WaylandWindow.h"

namespace platform {

using testing::SizeIs;
using testsupport::DesktopPortal;
using testsupport::eventually;
using testsupport::HeadlessMutter;
using testsupport::PortalBackend;
using testsupport::RemoteDesktopInput;
using testsupport::sessionBus;
using testsupport::sessionRuntime;
using testsupport::WaylandWindow;
using Kind = testsupport::WaylandEvent::Kind;
using namespace std::chrono_literals;

namespace {

constexpr auto idleEnough = 1000ms;
constexpr auto atOnce = 200ms;
constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr unsigned keyF24 = 194;
constexpr unsigned keyF19 = 189;

std::vector<std::vector<InputEvent>> actions()
{
    return {
        {MouseMoved{{1, 1}}},
        {MouseMoved{{0, 0}}},
        {KeyEvent{leftCommand, true, 0}, KeyEvent{leftCommand, false, 0}},
        {KeyEvent{rightCommand, true, 0}, KeyEvent{rightCommand, false, 0}},
        {ScrollPixels{1}},
        {ScrollPixels{-1}},
    };
}

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

    // The desktop's idle time falls as the action arrives, but for the time that has passed since.
    void expectActivity(const std::vector<InputEvent> &action)
    {
        ASSERT_TRUE(mutter->becomesIdle(idleEnough));
        const auto start = std::chrono::steady_clock::now();
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
        }
        EXPECT_TRUE(eventually([&] {
            const auto idle = mutter->idleTime();
            return idle && *idle <= std::chrono::steady_clock::now() - start + atOnce && *idle < idleEnough;
        }));
    }

    void expectEveryActionIsActivity()
    {
        for (const auto &action : actions()) {
            expectActivity(action);
        }
        EXPECT_TRUE(eventually([this] { return inputCount == 8; }));
    }

    void typeKey(unsigned code) const
    {
        for (const unsigned state : {1U, 0U}) {
            mutter->take({QStringLiteral("NotifyKeyboardKeycode"), {code, state}, {}, false});
        }
    }

    // The desktop has a keyboard from the first key on.
    [[nodiscard]] bool hasFocus(WaylandWindow &window) const
    {
        typeKey(keyF24);
        return eventually([&] { return !window.input().events(Kind::focus).empty(); });
    }

    [[nodiscard]] static std::size_t inputsIn(WaylandWindow &window)
    {
        auto &input = window.input();
        return input.events(Kind::motion).size() + input.events(Kind::key).size() +
               input.events(Kind::axis).size();
    }

    void step(double offset) const
    {
        mutter->take({QStringLiteral("NotifyPointerMotion"), {offset, offset}, {}, false});
    }

    // Moves the pointer to the corner and from there into the window, which comes up growing: to and fro
    // until a step is as long as it should be. Waits for the last of all that.
    [[nodiscard]] bool putPointerInto(WaylandWindow &window) const
    {
        step(-5000);
        const bool isIn = eventually([&] {
            step(10);
            return !window.input().events(Kind::pointerEnter).empty();
        });
        double offset = 10;
        const bool hasGrown = eventually([&] {
            step(offset = -offset);
            const auto motions = window.input().events(Kind::motion);
            return motions.size() > 1 && std::abs(motions.back().x - motions[motions.size() - 2].x) == 10;
        });
        typeKey(keyF19);
        const bool isOver = eventually([&] {
            const auto keys = window.input().events(Kind::key);
            return !keys.empty() && keys.back().code == keyF19 && !keys.back().isDown;
        });
        window.input().clear();
        return isIn && hasGrown && isOver;
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

TEST_F(RemoteDesktopMutterTest, AWindowSeesAStepAndAPixelThatComeBackAndKeysThatTypeNothing)
{
    runSession();
    portal->onInput([this](const RemoteDesktopInput &input) { take(input); });
    WaylandWindow window(mutter->display());
    ASSERT_TRUE(window.isOpen());
    ASSERT_TRUE(hasFocus(window));
    ASSERT_TRUE(putPointerInto(window));
    std::size_t count = 0;
    for (const auto &action : actions()) {
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
            ++count;
        }
        // Steps within one frame would be one for the window.
        ASSERT_TRUE(eventually([&] { return inputsIn(window) == count; }));
    }
    const auto steps = window.input().events(Kind::motion);
    ASSERT_THAT(steps, SizeIs(2));
    EXPECT_EQ(steps[1].x - steps[0].x, -1);
    EXPECT_EQ(steps[1].y - steps[0].y, -1);
    const auto scrolls = window.input().events(Kind::axis);
    EXPECT_NEAR(scrolls[0].y, 1, 0.1); // which mutter turns into parts of a notch and back
    EXPECT_EQ(scrolls[0].y + scrolls[1].y, 0);
    const auto keys = window.input().events(Kind::key);
    ASSERT_THAT(keys, SizeIs(4));
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].code, i < 2 ? keyF24 : keyF19);
        EXPECT_EQ(keys[i].isDown, i % 2 == 0);
        EXPECT_EQ(keys[i].symbol, xkb_keysym_t{XKB_KEY_NoSymbol});
        EXPECT_EQ(keys[i].text, QString());
    }
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
    expectActivity(actions().front());
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
    expectActivity(actions().front());
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
    expectActivity(actions().front());
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

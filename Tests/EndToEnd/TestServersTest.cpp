// The servers and observers that the other tests stand on.

#include "Tests/Support/AccessibilityBus.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/WindowManager.h"
#include "Tests/Support/XIdleClock.h"
#include "Tests/Support/XObserver.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XTextWindow.h"
#include "Tests/Support/XWindows.h"

#include <xcb/xtest.h>

#include <gtest/gtest.h>

#include <csignal>

namespace testsupport {

namespace {

void fake(const XClient &x, std::uint8_t type, std::uint8_t detail, QPoint offset = {})
{
    xcb_test_fake_input(x.get(), type, detail, XCB_CURRENT_TIME, x.root(),
                        static_cast<std::int16_t>(offset.x()), static_cast<std::int16_t>(offset.y()), 0);
    x.sync();
}

constexpr std::uint8_t isRelative = 1;
constexpr std::uint8_t keyOfA = 38;

} // namespace

TEST(TestServersTest, AChildTellsItsOutputItsExitCodeAndTheSignalThatEndedIt)
{
    const PrivateRuntime runtime;
    ChildProcess shell(QStringLiteral("sh"),
                       {QStringLiteral("-c"), QStringLiteral("echo $HOME; echo no >&2; exit 3")},
                       runtime.environment());
    EXPECT_EQ(shell.waitForExit(), 3);
    EXPECT_EQ(shell.standardOutput().trimmed(), runtime.path(QStringLiteral("home")).toUtf8());
    EXPECT_EQ(shell.standardError(), "no\n");

    ChildProcess sleeper(QStringLiteral("sleep"), {QStringLiteral("600")}, runtime.environment());
    EXPECT_TRUE(sleeper.isRunning());
    sleeper.end();
    EXPECT_EQ(sleeper.exitStatus(), -SIGTERM);

    ChildProcess missing(QStringLiteral("no-such-program"), {}, runtime.environment());
    EXPECT_EQ(missing.waitForExit(), 127);
}

TEST(TestServersTest, AnObserverSeesMotionKeysAndButtons)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime);
    ASSERT_TRUE(server.isOpen());
    XObserver observer(server.display());
    ASSERT_TRUE(observer.isOpen());
    const XClient poster(server.display());
    const auto before = observer.pointer();

    fake(poster, XCB_MOTION_NOTIFY, isRelative, {3, -2});
    fake(poster, XCB_KEY_PRESS, keyOfA);
    EXPECT_TRUE(observer.isAnythingHeldDown());
    fake(poster, XCB_KEY_RELEASE, keyOfA);
    fake(poster, XCB_BUTTON_PRESS, 7);
    fake(poster, XCB_BUTTON_RELEASE, 7);

    EXPECT_FALSE(observer.isAnythingHeldDown());
    EXPECT_EQ(observer.pointer() - before, QPoint(3, -2));
    ASSERT_TRUE(eventually([&] { return observer.events().size() >= 5; }));
    const auto motions = observer.events(XRawEvent::Kind::motion);
    ASSERT_EQ(motions.size(), 1U);
    EXPECT_EQ(motions.front().dx(), 3);
    EXPECT_EQ(motions.front().dy(), -2);
    EXPECT_EQ(observer.events(XRawEvent::Kind::keyPress).front().detail, keyOfA);
    EXPECT_EQ(observer.events(XRawEvent::Kind::keyRelease).front().detail, keyOfA);
    EXPECT_EQ(observer.events(XRawEvent::Kind::buttonPress).front().detail, 7);
    EXPECT_EQ(observer.events(XRawEvent::Kind::buttonRelease).front().detail, 7);
}

TEST(TestServersTest, TheIdleClocksAgreeAndFallWithInput)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime);
    const XClient x(server.display());
    ASSERT_TRUE(x.isOpen());
    ASSERT_TRUE(eventually([&] { return idleTime(x) > std::chrono::seconds(1); }));
    EXPECT_GT(printedIdleTime(runtime), std::chrono::seconds(1));

    fake(x, XCB_MOTION_NOTIFY, isRelative, {1, 1});

    EXPECT_LT(idleTime(x), std::chrono::seconds(1));
    EXPECT_LT(printedIdleTime(runtime), std::chrono::seconds(1));
}

TEST(TestServersTest, AServerWithoutAnExtensionCanBeHad)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime, {QStringLiteral("-extension"), QStringLiteral("XTEST")});
    const XClient x(server.display());
    ASSERT_TRUE(x.isOpen());
    EXPECT_FALSE(xcb_get_extension_data(x.get(), &xcb_test_id)->present);
}

TEST(TestServersTest, AManagedWindowIsFoundFocusedDrawnAndClosed)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime);
    ASSERT_TRUE(server.isOpen());
    const WindowManager manager(runtime);
    ASSERT_TRUE(manager.isOpen());
    const XClient x(server.display());
    XTextWindow window(server.display());
    ASSERT_TRUE(window.takeFocus());
    EXPECT_TRUE(eventually(
        [&] { return windowsTitled(x, QStringLiteral("Other program")) == std::vector{window.window()}; }));
    EXPECT_TRUE(eventually([&] { return activeWindow(x) == window.window(); }));
    const auto area = clientArea(x, window.window());
    EXPECT_EQ(area.size(), QSize(200, 100));
    EXPECT_TRUE(eventually([&] { return screenshot(x, area).pixelColor(50, 50) == QColor(Qt::white); }));
    EXPECT_GT(frameOf(x, window.window()).top(), 0);

    fake(x, XCB_KEY_PRESS, keyOfA);
    fake(x, XCB_KEY_RELEASE, keyOfA);
    EXPECT_TRUE(eventually([&] { return window.events().size() == 2; }));
}

TEST(TestServersTest, ThePrivateBusesAnswer)
{
    PrivateRuntime runtime;
    const PrivateBus bus(runtime);
    ASSERT_TRUE(bus.isOpen());
    EXPECT_TRUE(bus.connect().isConnected());
    const AccessibilityBus accessibility(runtime, bus);
    EXPECT_TRUE(accessibility.isOpen());
    EXPECT_NE(accessibility.address(), bus.address());
}

} // namespace testsupport

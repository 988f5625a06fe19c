// Posting where the X server is missing, goes away, comes back or is held by somebody else.

#include "Platform/FallbackInputPoster.h"
#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/XObserver.h"

#include <unistd.h>

#include <gmock/gmock.h>

#include <csignal>
#include <future>

namespace platform {

namespace {

using testing::Eq;
using testing::IsEmpty;
using testing::Ne;
using testing::Optional;
using testsupport::ChildProcess;
using testsupport::eventually;
using testsupport::letPass;
using testsupport::posterOn;
using testsupport::PrivateRuntime;
using testsupport::PrivateXvfb;
using testsupport::ScopedDisplay;
using testsupport::XClient;
using testsupport::XObserver;

constexpr std::uint16_t leftCommand = 55;

// A display number that no other test picks: servers that pick their own begin at 0.
QString ownDisplayNumber()
{
    return QStringLiteral(":%1").arg(2000 + getpid() % 30000);
}

} // namespace

TEST(XtestFailureTest, WithoutAServerThereIsNoPoster)
{
    EXPECT_EQ(posterOn(QString()), nullptr);
    EXPECT_EQ(posterOn(QStringLiteral(":64321")), nullptr);
    EXPECT_EQ(posterOn(QStringLiteral("not a display")), nullptr);
    EXPECT_EQ(posterOn(QStringLiteral("/no/such/socket")), nullptr);
}

TEST(XtestFailureTest, WithoutTheExtensionThereIsNoPoster)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime, {QStringLiteral("-extension"), QStringLiteral("XTEST")});
    ASSERT_TRUE(server.isOpen());
    EXPECT_EQ(posterOn(server.display()), nullptr);
}

TEST(XtestFailureTest, WhenTheServerDiesNothingIsPostedAndNothingCrashes)
{
    PrivateRuntime runtime;
    PrivateXvfb server(runtime);
    const auto poster = posterOn(server.display());
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, true, 0}));

    server.process().sendSignal(SIGKILL);
    ASSERT_THAT(server.process().waitForExit(), Optional(-SIGKILL));

    EXPECT_FALSE(poster->post(MouseMoved{{10, 10}}));
    EXPECT_FALSE(poster->isOpen());
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, false, 0}));
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, true, 0}));
    EXPECT_FALSE(poster->post(ScrollPixels{1}));
    EXPECT_FALSE(poster->post(ScrollPixels{-1}));
    EXPECT_EQ(poster->pointerLocation(), std::nullopt);
}

TEST(XtestFailureTest, AServerThatComesBackUnderTheSameNameIsFoundAgain)
{
    PrivateRuntime runtime;
    const auto display = ownDisplayNumber();
    const ScopedDisplay scope(display);
    FallbackInputPoster poster({XtestInputPoster::create});
    EXPECT_FALSE(poster.post(MouseMoved{{10, 10}})) << "before there is a server";

    std::optional<PrivateXvfb> server(std::in_place, runtime, QStringList(display));
    ASSERT_THAT(server->display(), Eq(display));
    EXPECT_TRUE(poster.post(MouseMoved{{10, 10}}));
    server->process().sendSignal(SIGKILL);
    ASSERT_THAT(server->process().waitForExit(), Optional(-SIGKILL));
    EXPECT_FALSE(poster.post(MouseMoved{{20, 20}}));
    EXPECT_FALSE(poster.post(MouseMoved{{20, 20}}));

    server.emplace(runtime, QStringList(display));
    ASSERT_THAT(server->display(), Eq(display));
    EXPECT_TRUE(poster.post(MouseMoved{{30, 30}}));
    EXPECT_THAT(poster.pointerLocation(), Optional(PointerLocation{30, 30}));
}

TEST(XtestFailureTest, AServerThatAnotherProgramHoldsTakesTheInputAllTheSame)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime);
    const auto poster = posterOn(server.display());
    ASSERT_NE(poster, nullptr);
    const XClient other(server.display());
    xcb_grab_server(other.get());
    other.sync();

    auto posted = std::async(std::launch::async, [&poster] {
        return poster->post(MouseMoved{{40, 50}}) && poster->post(KeyEvent{leftCommand, true, 0}) &&
               poster->post(KeyEvent{leftCommand, false, 0}) && poster->post(ScrollPixels{1}) &&
               poster->post(ScrollPixels{-1}) && poster->pointerLocation() == PointerLocation{40, 50};
    });
    const auto status = posted.wait_for(std::chrono::seconds(10));
    xcb_ungrab_server(other.get());
    other.sync();
    EXPECT_EQ(status, std::future_status::ready);
    EXPECT_TRUE(posted.get());
}

TEST(XtestFailureTest, AKilledProgramLeavesNoKeyDown)
{
    PrivateRuntime runtime;
    const PrivateXvfb server(runtime);
    XObserver observer(server.display());
    ASSERT_TRUE(observer.isOpen());
    ChildProcess program(QStringLiteral(STIRRA_HELD_KEY_PROGRAM), {}, runtime.environment());
    ASSERT_TRUE(eventually([&] { return program.standardOutput() == "pressed\n"; }));

    program.sendSignal(SIGKILL);
    ASSERT_THAT(program.waitForExit(), Optional(-SIGKILL));

    letPass(std::chrono::milliseconds(100));
    EXPECT_FALSE(observer.isAnythingHeldDown());
    EXPECT_THAT(observer.events(), IsEmpty());
}

} // namespace platform

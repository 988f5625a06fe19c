// Whether a program is trusted in a Wayland session: it is where it may read the devices and post.

#include "Platform/Linux/Permissions/LinuxPermissions.h"
#include "Platform/Linux/Portal/PortalInputPoster.h"
#include "Platform/Linux/Wayland/WaylandConnection.h"
#include "Platform/Trust.h"
#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Support/Evdev/MockInputDevices.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeRemoteDesktopPortal.h"
#include "Tests/Support/PrivateBus.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"
#include "Tests/Support/Wayland/WaylandClient.h"

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>
#include <wayland-client-protocol.h>

#include <atomic>
#include <thread>
#include <vector>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using testsupport::MockInputDevices;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::PrivateWeston;
using Answer = testsupport::FakeRemoteDesktopPortal::Answer;
using Kind = MockInputDevices::Kind;

// What a seat is told to have, again and again.
using SeatChanges = std::vector<std::uint32_t>;

constexpr wl_seat_listener seatListener{[](void *changes, wl_seat * /*seat*/, std::uint32_t capabilities) {
                                            static_cast<SeatChanges *>(changes)->push_back(capabilities);
                                        },
                                        nullptr}; // the name, of later versions

std::atomic<int> warningCount = 0;

void countWarning(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString & /*message*/)
{
    ++warningCount;
}

class WaylandTrustTest : public testing::Test
{
protected:
    WaylandTrustTest()
    {
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("STIRRA_UINPUT_DEVICE", "/nonexistent");
        qunsetenv("DISPLAY");
    }

    ObservedEvents events;
    PrivateRuntime runtime;
    MockInputDevices devices;
    std::unique_ptr<InputListener> listener = makeNativeInputListener();
};

} // namespace

TEST_F(WaylandTrustTest, WhereTheDevicesMayBeReadAndTheCompositorTakesInput)
{
    const PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    qputenv("WAYLAND_DISPLAY", sway.display().toUtf8());
    EXPECT_FALSE(listener->isTrusted()) << "there is no device";
    EXPECT_EQ(listener->makeTap(allKeyKinds, events.handler()), nullptr);

    const auto keyboard = devices.add(Kind::keyboard);
    EXPECT_TRUE(eventually([this] { return listener->isTrusted(); })) << "a busy compositor may be late";
    const auto tap = listener->makeTap(allKeyKinds, events.handler());
    ASSERT_NE(tap, nullptr);
    tap->setEnabled(true);
    devices.play(keyboard, {{EV_KEY, KEY_A, 1}, {EV_SYN, 0, 0}});
    EXPECT_TRUE(eventually([this] { return events.size() == 1; }));
    EXPECT_THAT(events.all(), ElementsAre(keyDown(0, u"a")));

    devices.forbid(keyboard);
    EXPECT_FALSE(listener->isTrusted());
}

// A pointer that came and went would have every client of the seat make one of its own, and drop it.
TEST_F(WaylandTrustTest, TheQuestionChangesNothingOfTheSeatAndIsForAnyThread)
{
    const PrivateSway sway(runtime);
    ASSERT_TRUE(sway.isOpen());
    qputenv("WAYLAND_DISPLAY", sway.display().toUtf8());
    devices.add(Kind::keyboard);
    const testsupport::WaylandClient client(sway.display());
    const std::unique_ptr<wl_seat, DestroyProxy> seat(client.bind<wl_seat>(wl_seat_interface, 1));
    SeatChanges changes;
    wl_seat_add_listener(seat.get(), &seatListener, &changes);
    client.sync();
    ASSERT_THAT(changes, ElementsAre(0U));

    warningCount = 0;
    const auto handlerBefore = qInstallMessageHandler(countWarning);
    std::thread([this] {
        EXPECT_TRUE(eventually([this] { return listener->isTrusted(); })) << "a busy compositor may be late";
    }).join();
    qInstallMessageHandler(handlerBefore);
    EXPECT_EQ(warningCount, 0);
    client.sync();
    EXPECT_THAT(changes, ElementsAre(0U));
}

// What the request for accessibility is good for on desktops that post through their portal.
TEST_F(WaylandTrustTest, WhereTheUserHasGrantedASessionOfThePortalForAsLongAsItRuns)
{
    const PrivateWeston weston(runtime);
    const testsupport::PrivateBus bus(runtime);
    ASSERT_TRUE(weston.isOpen() && bus.isOpen());
    qputenv("WAYLAND_DISPLAY", weston.display().toUtf8());
    testsupport::FakeRemoteDesktopPortal portal(bus, {.toQuestion = Answer::later});
    auto candidate = std::make_shared<RemoteDesktopPortal>(bus.connect());
    Obstacle why;
    auto poster = PortalInputPoster::create(
        candidate, {.token = RemoteDesktopToken(runtime.path(QStringLiteral("token")))}, why);
    ASSERT_NE(poster, nullptr);
    LinuxPermissions permissions({.bus = bus.connect(),
                                  .sandbox = std::nullopt,
                                  .isTrusted = isTrusted,
                                  .askForInput = [&poster] { poster->prepare(); },
                                  .queryPatience = {},
                                  .answerPatience = {}});
    const auto keyboard = devices.add(Kind::keyboard);
    permissions.requestAccessibility();
    ASSERT_TRUE(eventually([&portal] { return portal.questionCount() == 1; }));
    EXPECT_FALSE(permissions.isAccessibilityTrusted()) << "the user thinks";
    portal.answerQuestion(Answer::grant);
    EXPECT_TRUE(eventually([&] { return permissions.isAccessibilityTrusted(); }));
    EXPECT_TRUE(listener->isTrusted());
    EXPECT_NE(listener->makeTap(allKeyKinds, events.handler()), nullptr);

    devices.forbid(keyboard);
    EXPECT_FALSE(permissions.isAccessibilityTrusted()) << "it may post and not listen";
    devices.add(Kind::keyboard);
    EXPECT_TRUE(permissions.isAccessibilityTrusted());
    portal.closeSession();
    EXPECT_TRUE(eventually([&] { return !permissions.isAccessibilityTrusted(); }));
    permissions.requestAccessibility();
    ASSERT_TRUE(eventually([&portal] { return portal.questionCount() == 2 || portal.isSessionRunning(); }));
    portal.answerQuestion(Answer::grant);
    EXPECT_TRUE(eventually([&] { return permissions.isAccessibilityTrusted(); }));
    poster.reset();
    EXPECT_FALSE(permissions.isAccessibilityTrusted());
}

TEST_F(WaylandTrustTest, NotWhereNobodyTakesInput)
{
    const PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    qputenv("WAYLAND_DISPLAY", weston.display().toUtf8());
    devices.add(Kind::keyboard);
    EXPECT_FALSE(listener->isTrusted());
}

} // namespace platform

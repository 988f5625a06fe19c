// Whether a program is trusted in a Wayland session: it is where it may read the devices and post.

#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Support/Evdev/MockInputDevices.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/PrivateWeston.h"

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using testsupport::MockInputDevices;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::PrivateWeston;
using Kind = MockInputDevices::Kind;

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

TEST_F(WaylandTrustTest, NotWhereNobodyTakesInput)
{
    const PrivateWeston weston(runtime);
    ASSERT_TRUE(weston.isOpen());
    qputenv("WAYLAND_DISPLAY", weston.display().toUtf8());
    devices.add(Kind::keyboard);
    EXPECT_FALSE(listener->isTrusted());
}

} // namespace platform

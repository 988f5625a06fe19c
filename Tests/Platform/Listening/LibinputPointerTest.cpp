// What is seen of the kernel's pointers, which are made up.

#include "Tests/Platform/Listening/LibinputTapTest.h"

namespace platform {

namespace {

using testsupport::eventually;
using testsupport::MockInputDevices;
using Kind = testsupport::MockInputDevices::Kind;

constexpr std::uint16_t syn = EV_SYN;

} // namespace

TEST_F(LibinputTapTest, MovesFollowTheStepsUpToTheEdges)
{
    const auto mouse = devices.add(Kind::mouse);
    const auto tap = enabledTap(allPointerKinds);
    ASSERT_NE(tap, nullptr);
    devices.play(mouse, {{EV_REL, REL_X, 5}, {syn, 0, 0}});
    ASSERT_TRUE(comes(1));
    const auto first = events.all().front();
    EXPECT_GT(first.location.x, 500);
    EXPECT_EQ(first.location.y, 400);
    std::vector<MockInputDevices::Event> far;
    for (int i = 0; i < 30; ++i) {
        far.insert(far.end(), {{EV_REL, REL_X, -100}, {EV_REL, REL_Y, 100}, {syn, 0, 0}});
    }
    devices.play(mouse, far);
    ASSERT_TRUE(comes(31));
    EXPECT_EQ(events.all().back(), moved(ObservedKind::mouseMoved, 0, 800));
}

TEST_F(LibinputTapTest, ThePointerBeginsInTheMiddleOfADesktopThatIsToldLater)
{
    const auto mouse = devices.add(Kind::mouse);
    auto unknown = std::make_unique<FakeSession>();
    auto &later = *unknown;
    const auto area = std::exchange(later.area, {});
    const auto tap = LibinputTap::create(allPointerKinds, events.handler(), std::move(unknown));
    ASSERT_NE(tap, nullptr);
    tap->setEnabled(true);
    devices.play(mouse, {{EV_REL, REL_X, -5}, {syn, 0, 0}});
    ASSERT_TRUE(comes(1));
    EXPECT_LT(events.all().front().location.x, 0);
    later.area = area;
    for (std::size_t count = 2; count < 4; ++count) {
        devices.play(mouse, {{EV_REL, REL_X, 5}, {syn, 0, 0}});
        ASSERT_TRUE(comes(count));
    }
    const auto locations = events.all();
    EXPECT_GT(locations[1].location.x, 500);
    EXPECT_GT(locations[2].location.x, locations[1].location.x) << "and goes on from there";
    EXPECT_EQ(locations[2].location.y, 400);
}

TEST_F(LibinputTapTest, DragsAreByTheButtonAndClicksAndScrollsAreNothing)
{
    const auto mouse = devices.add(Kind::mouse);
    const auto tap = enabledTap(allPointerKinds);
    ASSERT_NE(tap, nullptr);
    const auto moveIs = [&](ObservedKind kind) {
        return eventually([&] {
            devices.play(mouse, {{EV_REL, REL_X, 1}, {syn, 0, 0}});
            return events.size() > 0 && events.all().back().kind == kind;
        });
    };
    devices.play(mouse, {{EV_REL, REL_WHEEL, 1}, {syn, 0, 0}});
    for (const auto &[button, kind] :
         {std::pair<std::uint16_t, ObservedKind>{BTN_LEFT, ObservedKind::leftMouseDragged},
          {BTN_RIGHT, ObservedKind::rightMouseDragged},
          {BTN_MIDDLE, ObservedKind::otherMouseDragged}}) {
        devices.play(mouse, {{EV_KEY, button, 1}, {syn, 0, 0}});
        EXPECT_TRUE(moveIs(kind));
        devices.play(mouse, {{EV_KEY, button, 0}, {syn, 0, 0}});
        EXPECT_TRUE(moveIs(ObservedKind::mouseMoved)) << "a release counts when it is sure to be no bounce";
    }
}

TEST_F(LibinputTapTest, OfTwoOtherButtonsTheSecondOneStillDragsWhenTheFirstIsLetGoOf)
{
    const auto mouse = devices.add(Kind::mouse);
    const auto tap = enabledTap(allPointerKinds);
    ASSERT_NE(tap, nullptr);
    devices.play(mouse, {{EV_KEY, BTN_MIDDLE, 1}, {syn, 0, 0}, {EV_KEY, BTN_SIDE, 1}, {syn, 0, 0}});
    const auto moveIs = [&](ObservedKind kind) {
        devices.play(mouse, {{EV_REL, REL_X, 1}, {syn, 0, 0}});
        return events.size() > 0 && events.all().back().kind == kind;
    };
    ASSERT_TRUE(eventually([&] { return moveIs(ObservedKind::otherMouseDragged); }));
    devices.play(mouse, {{EV_KEY, BTN_SIDE, 0}, {syn, 0, 0}});
    for (int i = 0; i < 10; ++i) {
        const auto before = events.size();
        devices.play(mouse, {{EV_REL, REL_X, 1}, {syn, 0, 0}});
        ASSERT_TRUE(comes(before + 1));
        testsupport::letPass(
            std::chrono::milliseconds(10)); // a release counts when it is sure to be no bounce
    }
    EXPECT_EQ(events.all().back().kind, ObservedKind::otherMouseDragged);
    devices.play(mouse, {{EV_KEY, BTN_MIDDLE, 0}, {syn, 0, 0}});
    EXPECT_TRUE(eventually([&] { return moveIs(ObservedKind::mouseMoved); }));
}

TEST_F(LibinputTapTest, ADeviceThatTellsPlacesTellsWhereThePointerIs)
{
    const auto tablet = devices.add(Kind::tablet);
    const auto tap = enabledTap(allPointerKinds);
    ASSERT_NE(tap, nullptr);
    session->area = QRectF(-1000, 0, 2000, 1000);
    devices.play(tablet, {{EV_ABS, ABS_X, 16384}, {EV_ABS, ABS_Y, 8192}, {syn, 0, 0}});
    ASSERT_TRUE(comes(1));
    EXPECT_NEAR(events.all().back().location.x, 0, 1);
    EXPECT_NEAR(events.all().back().location.y, 250, 1);
}

} // namespace platform

// What is seen of the input of an X server, and that nobody else notices.

#include "Tests/Platform/Listening/ListeningTest.h"
#include "Tests/Support/XTextWindow.h"

#include <xcb/xtest.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testsupport::eventually;
using testsupport::xAnswer;
using testsupport::XClient;
using testsupport::XTextWindow;

constexpr int leftButton = 1;
constexpr int middleButton = 2;
constexpr int rightButton = 3;
constexpr int wheelDown = 5;
constexpr int wheelRight = 7;

class XInputTapTest : public XListeningTest
{
protected:
    ObservedEvents keys;
    ObservedEvents moves;
};

} // namespace

TEST_F(XInputTapTest, MovesAreSeenWhereTheyEndAndAreDragsByTheButtonThatIsHeld)
{
    const auto tap = tapInto(moves, allPointerKinds);
    ASSERT_NE(tap, nullptr);
    moveTo(100, 200);
    hold(leftButton);
    moveTo(101, 202);
    hold(rightButton);
    moveTo(102, 204);
    letGo(leftButton);
    moveTo(103, 206);
    letGo(rightButton);
    hold(middleButton);
    moveTo(104, 208);
    letGo(middleButton);
    moveTo(5000, -5);
    ASSERT_TRUE(eventually([this] { return moves.size() == 6; }));
    EXPECT_THAT(moves.kinds(), ElementsAre(ObservedKind::mouseMoved, ObservedKind::leftMouseDragged,
                                           ObservedKind::leftMouseDragged, ObservedKind::rightMouseDragged,
                                           ObservedKind::otherMouseDragged, ObservedKind::mouseMoved));
    EXPECT_EQ(moves.all().back(), moved(ObservedKind::mouseMoved, 1279, 0)) << "the edge of the screen";
}

TEST_F(XInputTapTest, TheButtonsAreThoseOfALeftHandedUser)
{
    const auto tap = tapInto(moves, allPointerKinds);
    ASSERT_NE(tap, nullptr);
    constexpr std::array<std::uint8_t, 3> swapped{3, 2, 1};
    const auto mapping =
        xAnswer(xcb_get_pointer_mapping_reply, user.get(), xcb_get_pointer_mapping(user.get()));
    std::vector<std::uint8_t> map(xcb_get_pointer_mapping_map(mapping.get()),
                                  xcb_get_pointer_mapping_map(mapping.get()) + mapping->map_len);
    std::ranges::copy(swapped, map.begin());
    const auto done =
        xAnswer(xcb_set_pointer_mapping_reply, user.get(),
                xcb_set_pointer_mapping(user.get(), static_cast<std::uint8_t>(map.size()), map.data()));
    ASSERT_EQ(done->status, XCB_MAPPING_STATUS_SUCCESS);
    hold(leftButton);
    moveTo(1, 2);
    letGo(leftButton);
    moveTo(2, 3);
    ASSERT_TRUE(eventually([this] { return moves.size() == 2; }));
    EXPECT_THAT(moves.kinds(), ElementsAre(ObservedKind::rightMouseDragged, ObservedKind::mouseMoved));
}

TEST_F(XInputTapTest, AButtonThatIsHeldAlreadyCounts)
{
    hold(rightButton);
    const auto tap = tapInto(moves, allPointerKinds);
    ASSERT_NE(tap, nullptr);
    moveTo(1, 2);
    ASSERT_TRUE(eventually([this] { return moves.size() == 1; }));
    EXPECT_EQ(moves.all().front(), moved(ObservedKind::rightMouseDragged, 1, 2));
}

TEST_F(XInputTapTest, EachMoveIsToldWhereThePointerWas)
{
    const auto tap = tapInto(moves, allPointerKinds);
    ASSERT_NE(tap, nullptr);
    for (int i = 1; i <= 5; ++i) {
        moveTo(i * 10, i * 20);
        ASSERT_TRUE(eventually([&] { return moves.size() == static_cast<std::size_t>(i); }));
        EXPECT_EQ(moves.all().back(), moved(ObservedKind::mouseMoved, i * 10, i * 20));
    }
}

TEST_F(XInputTapTest, ClicksScrollsReleasesAndWhatIsNotInTheMaskAreNot)
{
    const auto pointer = tapInto(moves, allPointerKinds);
    const auto keyboard = tapInto(keys, maskOf(ObservedKind::keyDown));
    ASSERT_TRUE(pointer && keyboard);
    for (const int button : {leftButton, middleButton, rightButton, wheelDown, wheelRight}) {
        hold(button);
        letGo(button);
    }
    for (const int modifier : {KEY_LEFTSHIFT, KEY_RIGHTCTRL, KEY_LEFTALT, KEY_LEFTMETA, KEY_RIGHTMETA,
                               KEY_CAPSLOCK, KEY_CAPSLOCK}) {
        type({modifier});
    }
    moveTo(7, 8);
    finishKeys(keys);
    ASSERT_TRUE(eventually([this] { return !moves.all().empty(); }));
    EXPECT_THAT(moves.all(), ElementsAre(moved(ObservedKind::mouseMoved, 7, 8)));
    EXPECT_THAT(keys.all(), ElementsAre(escape));
}

TEST_F(XInputTapTest, GrabsOfOtherProgramsHideNothing)
{
    const auto pointer = tapInto(moves, allPointerKinds);
    const auto keyboard = tapInto(keys, allKeyKinds);
    ASSERT_TRUE(pointer && keyboard);
    const XClient other(server.display());
    const auto grabbedKeys = xAnswer(xcb_grab_keyboard_reply, other.get(),
                                     xcb_grab_keyboard(other.get(), 0, other.root(), XCB_CURRENT_TIME,
                                                       XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    const auto grabbedPointer = xAnswer(
        xcb_grab_pointer_reply, other.get(),
        xcb_grab_pointer(other.get(), 0, other.root(), XCB_EVENT_MASK_POINTER_MOTION, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME));
    ASSERT_EQ(grabbedKeys->status, XCB_GRAB_STATUS_SUCCESS);
    ASSERT_EQ(grabbedPointer->status, XCB_GRAB_STATUS_SUCCESS);
    moveTo(33, 44);
    press(KEY_LEFTSHIFT);
    type({KEY_B});
    release(KEY_LEFTSHIFT);
    ASSERT_TRUE(eventually([this] { return keys.size() == 2 && moves.size() == 1; }));
    EXPECT_EQ(keys.all().back(), keyDown(11, u"B"));
    EXPECT_EQ(moves.all().back(), moved(ObservedKind::mouseMoved, 33, 44));
}

TEST_F(XInputTapTest, AServerThatAnotherProgramHoldsTellsAllTheSame)
{
    const auto pointer = tapInto(moves, allPointerKinds);
    const auto keyboard = tapInto(keys, allKeyKinds);
    ASSERT_TRUE(pointer && keyboard);
    xcb_test_grab_control(user.get(), 1);
    user.sync();
    const XClient other(server.display());
    xcb_grab_server(other.get());
    other.sync();
    moveTo(3, 4);
    type({KEY_A});
    EXPECT_TRUE(eventually([this] { return moves.size() == 1 && keys.size() == 1; }));
    xcb_ungrab_server(other.get());
    other.sync();
}

TEST_F(XInputTapTest, OtherProgramsGetTheSameWithAndWithoutIt)
{
    const auto received = [this] {
        XTextWindow window(server.display());
        moveTo(1, 1);
        EXPECT_TRUE(window.takeFocus());
        window.clear();
        moveTo(20, 20);
        hold(leftButton);
        moveTo(30, 25);
        letGo(leftButton);
        press(KEY_LEFTSHIFT);
        type({KEY_A, KEY_F24});
        release(KEY_LEFTSHIFT);
        type({KEY_BACKSPACE, KEY_ENTER});
        EXPECT_TRUE(eventually([&] { return window.events().size() >= 14; }));
        std::vector<std::pair<int, int>> list;
        for (const auto &event : window.events()) {
            list.emplace_back(event.type, event.detail);
        }
        return list;
    };
    const auto without = received();
    const auto pointer = tapInto(moves, allPointerKinds);
    const auto keyboard = tapInto(keys, allKeyKinds);
    const auto with = received();
    EXPECT_THAT(without, SizeIs(14));
    EXPECT_EQ(with, without);
    EXPECT_TRUE(eventually([this] { return moves.size() == 3 && keys.size() == 5; }));
}

TEST_F(XInputTapTest, OneThatIsDisabledTellsNothingNotEvenWhatHasHappened)
{
    ObservedEvents others;
    const auto tap = tapInto(keys, allKeyKinds);
    const auto other = tapInto(others, allKeyKinds);
    ASSERT_TRUE(tap && other);
    type({KEY_A});
    tap->setEnabled(false);
    type({KEY_B});
    ASSERT_TRUE(eventually([&] { return others.size() == 2; }));
    EXPECT_THAT(keys.all(), IsEmpty());
    tap->setEnabled(true);
    type({KEY_C});
    ASSERT_TRUE(eventually([&] { return others.size() == 3; }));
    EXPECT_TRUE(eventually([&] { return keys.size() == 1; }));
    EXPECT_EQ(keys.all().back(), keyDown(8, u"c"));
}

TEST_F(XInputTapTest, AHandlerMayDestroyTheTap)
{
    std::unique_ptr<InputTap> tap;
    int count = 0;
    tap = listener->makeTap(allKeyKinds | allPointerKinds, [&](const ObservedEvent & /*event*/) {
        ++count;
        tap.reset();
    });
    ASSERT_NE(tap, nullptr);
    tap->setEnabled(true);
    ObservedEvents others;
    const auto other = tapInto(others, allPointerKinds);
    moveTo(1, 2);
    moveTo(3, 4);
    type({KEY_A});
    EXPECT_TRUE(eventually([&] { return others.size() == 2 && !tap; }));
    EXPECT_EQ(count, 1);
}

} // namespace platform

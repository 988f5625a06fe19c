// What is seen of the kernel's keyboards, which are made up, with recorded events.

#include "Tests/Platform/Listening/LibinputTapTest.h"

#include <QThread>

#include <atomic>

namespace platform {

namespace {

using testing::ElementsAre;
using testsupport::eventually;
using Kind = testsupport::MockInputDevices::Kind;

} // namespace

TEST_F(LibinputTapTest, WithoutADeviceNothingIsPossible)
{
    EXPECT_FALSE(LibinputTap::isPossible());
    EXPECT_EQ(enabledTap(allKeyKinds), nullptr);
    EXPECT_EQ(enabledTap(allPointerKinds), nullptr);
}

TEST_F(LibinputTapTest, DevicesThatMayNotBeReadAreNone)
{
    devices.forbid(devices.add(Kind::keyboard));
    devices.forbid(devices.add(Kind::mouse));
    EXPECT_FALSE(LibinputTap::isPossible());
    EXPECT_EQ(enabledTap(allKeyKinds), nullptr);
}

TEST_F(LibinputTapTest, KeysAreToldAsTheyAreOnX11)
{
    const auto keyboard = devices.add(Kind::keyboard);
    EXPECT_TRUE(LibinputTap::isPossible());
    EXPECT_EQ(enabledTap(allPointerKinds), nullptr) << "there is no pointer";
    const auto tap = enabledTap(allKeyKinds, "de");
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_Z, hold(KEY_LEFTSHIFT), KEY_SEMICOLON, -KEY_LEFTSHIFT, KEY_BACKSPACE, KEY_EQUAL,
                    KEY_E, hold(KEY_RIGHTALT), KEY_Q, -KEY_RIGHTALT, KEY_LEFTMETA, KEY_SYSRQ});
    ASSERT_TRUE(comes(10));
    EXPECT_THAT(events.all(),
                ElementsAre(keyDown(6, u"y"), modifierDown(56), keyDown(41, u"Ö"), keyDown(51, u"\b"),
                            keyDown(24, u""), keyDown(14, u"é"), modifierDown(61), keyDown(12, u"@"),
                            modifierDown(55), keyDown(0x100 + KEY_SYSRQ, u"")));
}

TEST_F(LibinputTapTest, ARecordingOfAUserIsToldInItsOrder)
{
    const auto keyboard = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown), "us", "compose:menu");
    ASSERT_NE(tap, nullptr);
    devices.play(keyboard, QStringLiteral(STIRRA_RECORDINGS "/hello-coeur.evemu"));
    ASSERT_TRUE(comes(14));
    EXPECT_EQ(events.text(), u"Hello, c\u0153ur!");
}

TEST_F(LibinputTapTest, TheLayoutIsFollowedWhenItChanges)
{
    const auto keyboard = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_CAPSLOCK, KEY_A});
    ASSERT_TRUE(comes(1));
    session->keymap = keymapOf("gr");
    play(keyboard, {KEY_A, KEY_CAPSLOCK, KEY_A});
    ASSERT_TRUE(comes(3));
    session->keymap = "no keymap";
    play(keyboard, {KEY_S});
    ASSERT_TRUE(comes(4));
    EXPECT_EQ(events.text(), u"AΑασ") << "with what is locked kept";
}

// As a program's own keyboard has it, which is the session's current one while the program types.
TEST_F(LibinputTapTest, ALayoutThatIsLockedOutlastsAKeymapWithoutIt)
{
    const auto keyboard = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown), "us,ru", "grp:menu_toggle");
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_F, KEY_COMPOSE, KEY_F});
    ASSERT_TRUE(comes(2));
    session->keymap = keymapOf("us");
    play(keyboard, {KEY_F});
    ASSERT_TRUE(comes(3));
    session->keymap = keymapOf("us,ru", "grp:menu_toggle");
    play(keyboard, {KEY_F, KEY_COMPOSE, KEY_F});
    ASSERT_TRUE(comes(5));
    session->keymap = keymapOf("us,ru");
    play(keyboard, {KEY_F});
    ASSERT_TRUE(comes(6));
    EXPECT_EQ(events.text(), u"f\u0430f\u0430ff") << "and what the user locks then counts";
}

// A compositor tells of the layout of whichever keyboard was used last, at any time.
TEST_F(LibinputTapTest, WhatIsHeldStaysHeldWhenTheLayoutChanges)
{
    const auto keyboard = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    play(keyboard, {hold(KEY_LEFTSHIFT), KEY_A});
    ASSERT_TRUE(comes(1));
    session->keymap = keymapOf("gr");
    play(keyboard, {KEY_A, -KEY_LEFTSHIFT, KEY_A, hold(KEY_CAPSLOCK)});
    ASSERT_TRUE(comes(3));
    session->keymap = keymapOf("de");
    play(keyboard, {KEY_Z, -KEY_CAPSLOCK, KEY_Z, KEY_CAPSLOCK, hold(KEY_RIGHTALT)});
    ASSERT_TRUE(comes(5));
    session->keymap = keymapOf("de");
    play(keyboard, {KEY_Q, -KEY_RIGHTALT, KEY_Q});
    ASSERT_TRUE(comes(7));
    EXPECT_EQ(events.text(), u"AΑαYY@q");
}

TEST_F(LibinputTapTest, WhatIsLockedAtFirstIsSeenByTheLights)
{
    const auto keyboard = devices.add(Kind::keyboard, (1U << LED_NUML) | (1U << LED_CAPSL));
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_A, KEY_KP7});
    ASSERT_TRUE(comes(2));
    EXPECT_THAT(events.all(), ElementsAre(keyDown(0, u"A"), keyDown(89, u"7")));
}

TEST_F(LibinputTapTest, AKeyboardThatIsPluggedInLaterIsHeardToo)
{
    const auto first = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    const auto second = devices.add(Kind::keyboard);
    devices.announce(second, "add");
    play(first, {KEY_A});
    ASSERT_TRUE(comes(1)) << "which comes after the other was taken in";
    play(second, {KEY_B});
    ASSERT_TRUE(comes(2));
    devices.announce(first, "remove");
    play(second, {KEY_C});
    ASSERT_TRUE(comes(3));
    EXPECT_EQ(events.text(), u"abc");
}

TEST_F(LibinputTapTest, EventsComeFromTheEventLoopOfTheThreadThatMadeTheTap)
{
    const auto keyboard = devices.add(Kind::keyboard);
    QThread thread;
    QObject place;
    place.moveToThread(&thread);
    thread.start();
    const auto onThread = [&place](const auto &work) {
        QMetaObject::invokeMethod(&place, work, Qt::BlockingQueuedConnection);
    };
    std::atomic<QThread *> toldOn = nullptr;
    std::unique_ptr<InputTap> tap;
    onThread([&] {
        tap = LibinputTap::create(
            allKeyKinds, [&toldOn](const ObservedEvent & /*event*/) { toldOn = QThread::currentThread(); },
            std::make_unique<FakeSession>());
        if (tap) {
            tap->setEnabled(true);
        }
    });
    EXPECT_NE(tap, nullptr);
    play(keyboard, {KEY_A});
    EXPECT_TRUE(eventually([&] { return toldOn == &thread; }));
    onThread([&] { tap.reset(); });
    thread.quit();
    thread.wait();
}

TEST_F(LibinputTapTest, OneThatIsDisabledClosesTheDevices)
{
    const auto keyboard = devices.add(Kind::keyboard);
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_A});
    ASSERT_TRUE(comes(1));
    tap->setEnabled(false);
    tap->setEnabled(true);
    play(keyboard, {KEY_B});
    ASSERT_TRUE(comes(2));
    EXPECT_EQ(events.text(), u"ab");
}

TEST_F(LibinputTapTest, AHandlerMayDestroyTheTap)
{
    const auto keyboard = devices.add(Kind::keyboard);
    std::unique_ptr<InputTap> tap;
    int count = 0;
    tap = LibinputTap::create(
        allKeyKinds,
        [&](const ObservedEvent & /*event*/) {
            ++count;
            tap.reset();
        },
        std::make_unique<FakeSession>());
    ASSERT_NE(tap, nullptr);
    tap->setEnabled(true);
    play(keyboard, {KEY_A, KEY_B});
    EXPECT_TRUE(eventually([&] { return !tap; }));
    EXPECT_EQ(count, 1);
}

} // namespace platform

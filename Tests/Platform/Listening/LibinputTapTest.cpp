// What is seen of the kernel's devices, which are made up, with recorded events.

#include "Platform/Linux/Listening/LibinputTap.h"

#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Support/Evdev/MockInputDevices.h"
#include "Tests/Support/Eventually.h"

#include <linux/input-event-codes.h>

#include <gmock/gmock.h>

#include <cmath>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testsupport::eventually;
using testsupport::MockInputDevices;
using Kind = MockInputDevices::Kind;

constexpr std::uint16_t syn = EV_SYN;

// A session in the test's hands.
class FakeSession final : public SessionView
{
public:
    [[nodiscard]] QByteArray changedKeymap() override { return std::exchange(keymap, {}); }
    [[nodiscard]] QRectF desktop() override { return area; }

    QByteArray keymap;
    QRectF area{0, 0, 1000, 800};
};

QByteArray keymapOf(const char *layout, const char *options = "")
{
    const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const xkb_rule_names names{"evdev", "pc105", layout, "", options};
    const XkbPointer<xkb_keymap> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
    return {text.get()};
}

class LibinputTapTest : public testing::Test
{
protected:
    LibinputTapTest() { qputenv("LC_ALL", "C.UTF-8"); }

    std::unique_ptr<InputTap> enabledTap(EventMask mask, const char *layout = "us", const char *options = "")
    {
        auto ownSession = std::make_unique<FakeSession>();
        session = ownSession.get();
        session->keymap = keymapOf(layout, options);
        auto tap = LibinputTap::create(mask, events.handler(), std::move(ownSession));
        if (tap) {
            tap->setEnabled(true);
        }
        return tap;
    }

    // Presses and releases keys one after the other; a negative one is only released, and one above 1000 is
    // only pressed.
    void play(const QString &keyboard, std::initializer_list<int> keys)
    {
        std::vector<MockInputDevices::Event> list;
        const auto add = [&list](int key, int value) {
            list.push_back({EV_KEY, static_cast<std::uint16_t>(key), value});
            list.push_back({syn, SYN_REPORT, 0});
        };
        for (const int key : keys) {
            if (key >= 0) {
                add(key % 1000, 1);
            }
            if (key < 1000) {
                add(std::abs(key), 0);
            }
        }
        devices.play(keyboard, list);
    }

    [[nodiscard]] bool comes(std::size_t count)
    {
        return eventually([&] { return events.size() >= count; }, std::chrono::seconds(20));
    }

    MockInputDevices devices;
    ObservedEvents events;
    FakeSession *session = nullptr;
};

constexpr int hold(int key)
{
    return key + 1000;
}

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

TEST_F(LibinputTapTest, WhatIsLockedAtFirstIsSeenByTheLights)
{
    const auto keyboard = devices.add(Kind::keyboard, (1U << LED_NUML) | (1U << LED_CAPSL));
    const auto tap = enabledTap(maskOf(ObservedKind::keyDown));
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_A, KEY_KP7});
    ASSERT_TRUE(comes(2));
    EXPECT_THAT(events.all(), ElementsAre(keyDown(0, u"A"), keyDown(89, u"7")));
}

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

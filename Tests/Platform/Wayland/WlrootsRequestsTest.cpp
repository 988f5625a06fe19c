// What the backend for wlroots asks of the compositor, request by request.

#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateRuntime.h"
#include "Tests/Support/Wayland/WaylandStandIn.h"
#include "Tests/Support/Wayland/WaylandUser.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testsupport::eventually;
using testsupport::PrivateRuntime;
using testsupport::WaylandStandIn;
using testsupport::WaylandUser;
using testsupport::wlrootsPosterOn;
using Offers = WaylandStandIn::Offers;

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;

class WlrootsRequestsTest : public testing::Test
{
protected:
    void start(const QByteArray &keymap = WaylandUser::keymapOfLayout("us"), Offers offers = {})
    {
        compositor.emplace(display, keymap, offers);
        poster = wlrootsPosterOn(display, why);
    }

    [[nodiscard]] bool postKey(std::uint16_t code) const
    {
        return poster->post(KeyEvent{code, true, 0}) && poster->post(KeyEvent{code, false, 0});
    }

    // The requests, when there are as many as expected.
    [[nodiscard]] std::vector<std::string> requests(qsizetype count) const
    {
        static_cast<void>(eventually([&] { return compositor->requests().size() >= count; }));
        std::vector<std::string> list;
        for (const auto &request : compositor->requests()) {
            list.push_back(request.toStdString());
        }
        return list;
    }

    PrivateRuntime runtime;
    QString display = runtime.path(QStringLiteral("wayland"));
    std::optional<WaylandStandIn> compositor;
    std::unique_ptr<InputPoster> poster;
    Obstacle why;
};

// The keymap of a layout in which the keys that are given as well type an "a".
QByteArray keymapWithSymbolOn(std::initializer_list<const char *> keys)
{
    auto text = WaylandUser::keymapOfLayout("us");
    for (const auto *key : keys) {
        const auto line = QByteArray("key <") + key + "> { [ a ] };\n\tkey <AE01>";
        text.replace("key <AE01>", line);
    }
    return text;
}

} // namespace

TEST_F(WlrootsRequestsTest, AMoveIsOneStepInOneFrame)
{
    start();
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_TRUE(poster->post(MouseMoved{{0, 0}}));
    EXPECT_THAT(requests(4), ElementsAre("motion 1 1", "frame", "motion -1 -1", "frame"));
}

TEST_F(WlrootsRequestsTest, TheSourceFollowsItsAxisAndTheFrameEndsThem)
{
    start();
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_THAT(requests(3), ElementsAre("axis 0 1", "axis_source 2", "frame"));
}

TEST_F(WlrootsRequestsTest, TheKeyboardComesWithTheFirstKeyAndItsKeymapBeforeIt)
{
    start();
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, true, 0}));
    EXPECT_THAT(compositor->requests(), IsEmpty());
    EXPECT_TRUE(poster->post(KeyEvent{leftCommand, false, 0}));
    EXPECT_THAT(requests(4), ElementsAre("create_keyboard", "keymap", "key 194 1", "key 194 0"));
    EXPECT_TRUE(postKey(rightCommand));
    EXPECT_THAT(requests(6),
                ElementsAre("create_keyboard", "keymap", "key 194 1", "key 194 0", "key 189 1", "key 189 0"));
}

TEST_F(WlrootsRequestsTest, AKeyThatTheKeymapGivesASymbolIsPassedOver)
{
    start(keymapWithSymbolOn({"FK24"}));
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(postKey(leftCommand));
    EXPECT_THAT(requests(4), ElementsAre("create_keyboard", "keymap", "key 240 1", "key 240 0"));
}

TEST_F(WlrootsRequestsTest, WhereNoSilentKeyIsLeftTheKeyIsRefused)
{
    start(keymapWithSymbolOn({"FK24", "FK19", "I248"}));
    ASSERT_NE(poster, nullptr);
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, true, 0}));
    EXPECT_FALSE(poster->post(KeyEvent{leftCommand, false, 0}));
    EXPECT_TRUE(poster->post(MouseMoved{{1, 1}}));
    EXPECT_THAT(requests(2), ElementsAre("motion 1 1", "frame"));
}

TEST_F(WlrootsRequestsTest, ASeatWithoutAKeyboardGetsTheDefaultKeymap)
{
    start(QByteArray());
    ASSERT_NE(poster, nullptr);
    EXPECT_TRUE(postKey(leftCommand));
    EXPECT_THAT(requests(4), ElementsAre("create_keyboard", "keymap", "key 194 1", "key 194 0"));
}

TEST_F(WlrootsRequestsTest, AKeymapThatCannotBeReadRefusesTheKey)
{
    start("xkb_keymap { no keymap };");
    ASSERT_NE(poster, nullptr);
    EXPECT_FALSE(postKey(leftCommand));
    EXPECT_TRUE(poster->isOpen());
    EXPECT_THAT(compositor->requests(), IsEmpty());
}

TEST_F(WlrootsRequestsTest, WhatIsMissingIsNamed)
{
    struct Missing
    {
        Offers offers;
        const char *name;
    };
    for (const auto &[offers, name] : {Missing{{true, false, true}, "zwlr_virtual_pointer_manager_v1"},
                                       Missing{{true, true, false}, "zwp_virtual_keyboard_manager_v1"},
                                       Missing{{false, true, true}, "wl_seat"}}) {
        start({}, offers);
        EXPECT_EQ(poster, nullptr) << name;
        EXPECT_THAT(why.reason.toStdString(), HasSubstr(name));
        EXPECT_FALSE(why.remedy.isEmpty());
        compositor.reset();
    }
}

} // namespace platform

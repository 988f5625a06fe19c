// The contract of posting input, held against the backend for wlroots on a real compositor, and what another
// client sees of it.

#include "Tests/Platform/Wayland/WlrootsPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"
#include "Tests/Support/Wayland/SwayIdle.h"
#include "Tests/Support/Wayland/WaylandUser.h"
#include "Tests/Support/Wayland/WaylandWindow.h"

#include <gmock/gmock.h>

#include <limits>

namespace platform {

namespace {

using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;
using testsupport::eventually;
using testsupport::letPass;
using testsupport::PrivateRuntime;
using testsupport::PrivateSway;
using testsupport::WaylandEvent;
using testsupport::WaylandUser;
using testsupport::WaylandWindow;
using Kind = WaylandEvent::Kind;

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr std::uint64_t functionFlag = 0x800000;
constexpr std::uint32_t keyF19 = 189;
constexpr std::uint32_t keyF24 = 194;
constexpr std::chrono::milliseconds whileNothingHappens(200);

constexpr KeyEvent press(std::uint16_t code)
{
    return {code, true, functionFlag};
}

constexpr KeyEvent release(std::uint16_t code)
{
    return {code, false, functionFlag};
}

// A seat with a keyboard, a window with the focus, and the pointer in its middle.
class WlrootsInputPosterTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(sway.isOpen()) << sway.process().standardError().constData();
        user.emplace(sway.display(), WaylandUser::keymapOfLayout("us"));
        window.emplace(sway.display());
        ASSERT_TRUE(window->isOpen());
        Obstacle why;
        poster = testsupport::wlrootsPosterOn(sway.display(), why);
        ASSERT_NE(poster, nullptr) << qPrintable(why.reason);
        ASSERT_TRUE(poster->post(MouseMoved{{0, 0}}));
        ASSERT_TRUE(sway.putPointer(640, 400));
        ASSERT_TRUE(eventually([this] { return !input(Kind::pointerEnter).empty(); }));
        ASSERT_TRUE(eventually([this] { return !input(Kind::focus).empty(); }));
        window->input().clear();
    }

    [[nodiscard]] std::vector<WaylandEvent> input(Kind kind) { return window->input().events(kind); }

    // Everything that a user could notice; that the poster's keyboard came is not among it.
    [[nodiscard]] std::size_t inputCount()
    {
        return input(Kind::motion).size() + input(Kind::axis).size() + input(Kind::key).size();
    }

    [[nodiscard]] bool postKey(std::uint16_t code)
    {
        return poster->post(press(code)) && poster->post(release(code));
    }

    PrivateRuntime runtime;
    PrivateSway sway{runtime};
    std::optional<WaylandUser> user;
    std::optional<WaylandWindow> window;
    std::unique_ptr<InputPoster> poster;
};

} // namespace

TEST_F(WlrootsInputPosterTest, AMoveGoesByTheStepToThePlaceItNamesAndComesBack)
{
    const auto start = poster->pointerLocation();
    ASSERT_THAT(start, Optional(PointerLocation{0, 0}));
    for (const double offset : {1.0, -1.0}) {
        window->input().clear();
        EXPECT_TRUE(poster->post(MouseMoved{{start->x + offset, start->y + offset}}));
        EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{offset, offset}));
        EXPECT_TRUE(poster->post(MouseMoved{*start}));
        ASSERT_TRUE(eventually([this] { return input(Kind::motion).size() == 2; }));
        const auto motions = input(Kind::motion);
        EXPECT_EQ(motions[0].x, 640 + offset);
        EXPECT_EQ(motions[0].y, 400 + offset);
        EXPECT_EQ(motions[1].x, 640);
        EXPECT_EQ(motions[1].y, 400);
        EXPECT_THAT(poster->pointerLocation(), Optional(*start));
    }
}

TEST_F(WlrootsInputPosterTest, APlaceBetweenPixelsIsRounded)
{
    EXPECT_TRUE(poster->post(MouseMoved{{30.6, 20.4}}));
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{31, 20}));
    ASSERT_TRUE(eventually([this] { return input(Kind::motion).size() == 1; }));
    EXPECT_EQ(input(Kind::motion).front().x, 671);
    EXPECT_EQ(input(Kind::motion).front().y, 420);
}

TEST_F(WlrootsInputPosterTest, APlaceThatNoPointerCanHaveIsRefused)
{
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 32768.0, -32769.0, 1e300}) {
        EXPECT_FALSE(poster->post(MouseMoved{{bad, 10}})) << bad;
        EXPECT_FALSE(poster->post(MouseMoved{{10, bad}})) << bad;
    }
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
    letPass(whileNothingHappens);
    EXPECT_EQ(inputCount(), 0U);
    EXPECT_TRUE(poster->isOpen());
}

TEST_F(WlrootsInputPosterTest, AKeyIsPressedAndReleasedInThisOrderAndTypesNothing)
{
    for (const auto code : {leftCommand, rightCommand}) {
        EXPECT_TRUE(postKey(code));
    }
    ASSERT_TRUE(eventually([this] { return input(Kind::key).size() == 4; }));
    const auto keys = input(Kind::key);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].code, i < 2 ? keyF24 : keyF19);
        EXPECT_EQ(keys[i].isDown, i % 2 == 0);
        EXPECT_EQ(keys[i].symbol, xkb_keysym_t{XKB_KEY_NoSymbol});
        EXPECT_EQ(keys[i].text, QString());
    }
    EXPECT_EQ(inputCount(), 4U);
}

// The compositor tells the focused client the keymap of each keyboard that is used.
TEST_F(WlrootsInputPosterTest, ThePersonWhoTypesKeepsTheirLayout)
{
    constexpr std::uint32_t keyY = 21; // "z" on a German keyboard
    constexpr std::uint32_t keyShift = 42;
    WaylandUser german(sway.display(), WaylandUser::keymapOfLayout("de"));
    german.type(keyY);
    ASSERT_TRUE(eventually([this] { return input(Kind::key).size() == 2; }));
    EXPECT_EQ(input(Kind::key).back().text, QStringLiteral("z"));
    const auto keymap = input(Kind::keymap).back().text;
    window->client().sync(); // by now the compositor has told the poster too

    EXPECT_TRUE(postKey(leftCommand));
    ASSERT_TRUE(eventually([this] { return input(Kind::key).size() == 4; }));
    EXPECT_EQ(input(Kind::key).back().text, QString());
    EXPECT_EQ(input(Kind::keymap).back().text, keymap);

    german.press(keyShift);
    EXPECT_TRUE(postKey(rightCommand));
    ASSERT_TRUE(eventually([this] { return input(Kind::key).size() == 7; }));
    german.type(keyY);
    german.release(keyShift);
    ASSERT_TRUE(eventually([this] { return input(Kind::key).size() == 10; }));
    EXPECT_EQ(input(Kind::key).at(7).text, QStringLiteral("Z"));
    EXPECT_EQ(input(Kind::keymap).back().text, keymap);
}

TEST_F(WlrootsInputPosterTest, APressAloneIsSeenByNobody)
{
    EXPECT_TRUE(poster->post(press(leftCommand)));
    letPass(whileNothingHappens);
    EXPECT_EQ(inputCount(), 0U);
    poster.reset();
    letPass(whileNothingHappens);
    EXPECT_EQ(inputCount(), 0U);
}

TEST_F(WlrootsInputPosterTest, AReleaseAloneIsRefused)
{
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_FALSE(poster->post(release(rightCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(eventually([this] { return input(Kind::key).size() == 2; }));
}

TEST_F(WlrootsInputPosterTest, AKeyWithoutACarrierIsRefused)
{
    for (const std::uint16_t code : std::initializer_list<std::uint16_t>{0, 53, 56, 65535}) {
        EXPECT_FALSE(poster->post(press(code))) << code;
        EXPECT_FALSE(poster->post(release(code))) << code;
    }
    letPass(whileNothingHappens);
    EXPECT_THAT(input(Kind::key), IsEmpty());
    EXPECT_TRUE(poster->isOpen());
}

TEST_F(WlrootsInputPosterTest, AScrollIsOnePixelDownAndOneUpThatNobodyTakesForAFlick)
{
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    ASSERT_TRUE(eventually([this] { return input(Kind::axis).size() == 2; }));
    const auto steps = input(Kind::axis);
    EXPECT_EQ(steps[0].y, 1);
    EXPECT_EQ(steps[1].y, -1);
    for (const auto &step : steps) {
        EXPECT_EQ(step.code, std::uint32_t{WL_POINTER_AXIS_VERTICAL_SCROLL});
    }
    const auto sources = input(Kind::axisSource);
    ASSERT_THAT(sources, SizeIs(2));
    EXPECT_EQ(sources[0].code, std::uint32_t{WL_POINTER_AXIS_SOURCE_CONTINUOUS});
    EXPECT_EQ(sources[1].code, std::uint32_t{WL_POINTER_AXIS_SOURCE_CONTINUOUS});
    EXPECT_EQ(inputCount(), 2U);
}

TEST_F(WlrootsInputPosterTest, AScrollOfAnySizeIsSurvived)
{
    using Range = std::numeric_limits<std::int32_t>;
    for (const auto pixels : {0, Range::max(), Range::min()}) {
        EXPECT_TRUE(poster->post(ScrollPixels{pixels}));
    }
    ASSERT_TRUE(eventually([this] { return input(Kind::axis).size() == 2; }));
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(eventually([this] { return input(Kind::axis).size() == 3; }));
    EXPECT_TRUE(poster->isOpen());
}

TEST_F(WlrootsInputPosterTest, EveryActionEndsAnIdlePeriod)
{
    const testsupport::SwayIdle idle(runtime, std::chrono::seconds(1));
    const std::vector<std::vector<InputEvent>> actions{
        {MouseMoved{{1, 1}}},
        {MouseMoved{{0, 0}}},
        {press(leftCommand), release(leftCommand)},
        {press(rightCommand), release(rightCommand)},
        {ScrollPixels{1}},
        {ScrollPixels{-1}},
    };
    qsizetype count = 0;
    for (const auto &action : actions) {
        ++count;
        ASSERT_TRUE(eventually([&] { return idle.idleCount() == count; }));
        EXPECT_EQ(idle.resumeCount(), count - 1) << "before the action";
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
        }
        EXPECT_TRUE(eventually([&] { return idle.resumeCount() == count; }));
    }
}

} // namespace platform

// The contract of posting input, held against every backend on a real server.

#include "Platform/FallbackInputPoster.h"
#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateXvfb.h"
#include "Tests/Support/XObserver.h"
#include "Tests/Support/XTextWindow.h"
#include "Tests/Support/Xorg/PrivateXorg.h"

#include <gmock/gmock.h>

#include <limits>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Optional;
using testsupport::eventually;
using testsupport::letPass;
using testsupport::PrivateRuntime;
using testsupport::PrivateXorg;
using testsupport::PrivateXvfb;
using testsupport::ScopedDisplay;
using testsupport::xAnswer;
using testsupport::XObserver;
using testsupport::XRawEvent;

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr std::uint64_t functionFlag = 0x800000;
constexpr std::chrono::milliseconds whileNothingHappens(200);

constexpr KeyEvent press(std::uint16_t code)
{
    return {code, true, functionFlag};
}

constexpr KeyEvent release(std::uint16_t code)
{
    return {code, false, functionFlag};
}

// A server and a way to post to it.
struct Backend
{
    const char *name;
    bool isXorg;
    std::unique_ptr<InputPoster> (*open)();

    friend void PrintTo(const Backend &backend, std::ostream *stream) { *stream << backend.name; }
};

std::unique_ptr<InputPoster> openXtest()
{
    Obstacle why;
    return XtestInputPoster::create(why);
}

std::unique_ptr<InputPoster> openFallback()
{
    return std::make_unique<FallbackInputPoster>(
        std::vector<FallbackInputPoster::Candidate>{XtestInputPoster::create});
}

class InputPosterTest : public testing::TestWithParam<Backend>
{
protected:
    void SetUp() override
    {
        startServer();
        ASSERT_FALSE(display.isEmpty());
        scope.emplace(display);
        observer.emplace(display);
        ASSERT_TRUE(observer->isOpen());
        poster = GetParam().open();
        ASSERT_NE(poster, nullptr);
    }

    void startServer()
    {
        if (GetParam().isXorg) {
            xorg.emplace(runtime);
            display = xorg->isOpen() ? xorg->display() : QString();
            xorg->mouse().moveBy(1, 1);
        } else {
            xvfb.emplace(runtime);
            display = xvfb->display();
        }
    }

    // Waits until the server has handled what the poster sent: it answers in the order of the requests.
    void settle() const
    {
        static_cast<void>(poster->pointerLocation());
        static_cast<void>(observer->client().sync());
    }

    void moveTo(double x, double y) const { EXPECT_TRUE(poster->post(MouseMoved{{x, y}})); }

    PrivateRuntime runtime;
    std::optional<PrivateXvfb> xvfb;
    std::optional<PrivateXorg> xorg;
    QString display;
    std::optional<ScopedDisplay> scope;
    mutable std::optional<XObserver> observer;
    std::unique_ptr<InputPoster> poster;
};

} // namespace

TEST_P(InputPosterTest, AMoveGoesToThePlaceItNamesAndComesBack)
{
    moveTo(300, 200);
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{300, 200}));
    moveTo(301, 201);
    settle();
    EXPECT_EQ(observer->pointer(), QPoint(301, 201));
    moveTo(300, 200);
    settle();
    EXPECT_EQ(observer->pointer(), QPoint(300, 200));
    EXPECT_TRUE(eventually([&] { return observer->events(XRawEvent::Kind::motion).size() == 3; }));
}

TEST_P(InputPosterTest, APlaceBetweenPixelsIsRounded)
{
    moveTo(300.6, 200.4);
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{301, 200}));
}

TEST_P(InputPosterTest, AMoveOffTheScreenEndsAtItsEdge)
{
    moveTo(-1, -1);
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
    moveTo(5000, 5000);
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{1279, 799}));
}

TEST_P(InputPosterTest, APlaceThatNoPointerCanHaveIsRefused)
{
    moveTo(300, 200);
    settle();
    observer->clear();
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 32768.0, -32769.0, 1e300}) {
        EXPECT_FALSE(poster->post(MouseMoved{{bad, 10}})) << bad;
        EXPECT_FALSE(poster->post(MouseMoved{{10, bad}})) << bad;
    }
    settle();
    EXPECT_THAT(observer->events(), IsEmpty());
    EXPECT_TRUE(poster->isOpen());
}

TEST_P(InputPosterTest, AKeyIsPressedAndReleasedInThisOrder)
{
    for (const auto code : {leftCommand, rightCommand}) {
        EXPECT_TRUE(poster->post(press(code)));
        EXPECT_TRUE(poster->post(release(code)));
    }
    ASSERT_TRUE(eventually([&] { return observer->events().size() == 4; }));
    const auto &events = observer->events();
    for (const std::size_t i : {0U, 2U}) {
        EXPECT_EQ(events[i].kind, XRawEvent::Kind::keyPress);
        EXPECT_EQ(events[i + 1].kind, XRawEvent::Kind::keyRelease);
        EXPECT_EQ(events[i].detail, events[i + 1].detail);
    }
    EXPECT_NE(events[0].detail, events[2].detail);
    EXPECT_FALSE(observer->isAnythingHeldDown());
}

TEST_P(InputPosterTest, APressAloneIsSeenByNobody)
{
    EXPECT_TRUE(poster->post(press(leftCommand)));
    settle();
    EXPECT_FALSE(observer->isAnythingHeldDown());
    poster.reset();
    letPass(whileNothingHappens);
    EXPECT_FALSE(observer->isAnythingHeldDown());
    EXPECT_THAT(observer->events(), IsEmpty());
}

TEST_P(InputPosterTest, AReleaseAloneIsRefused)
{
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_FALSE(poster->post(release(rightCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(eventually([&] { return observer->events().size() == 2; }));
}

TEST_P(InputPosterTest, AKeyWithoutACarrierIsRefused)
{
    for (const std::uint16_t code : std::initializer_list<std::uint16_t>{0, 53, 56, 65535}) {
        EXPECT_FALSE(poster->post(press(code))) << code;
        EXPECT_FALSE(poster->post(release(code))) << code;
    }
    settle();
    EXPECT_THAT(observer->events(), IsEmpty());
    EXPECT_TRUE(poster->isOpen());
}

TEST_P(InputPosterTest, TheKeysTypeAndDoNothingInAFocusedWindow)
{
    testsupport::XTextWindow window(display);
    ASSERT_TRUE(window.takeFocus());
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    ASSERT_TRUE(eventually([&] { return window.events().size() == 2; }));
    const auto code = window.events().front().detail;
    const auto &x = observer->client();
    const auto symbols =
        xAnswer(xcb_get_keyboard_mapping_reply, x.get(), xcb_get_keyboard_mapping(x.get(), code, 1));
    const auto *first = xcb_get_keyboard_mapping_keysyms(symbols.get());
    EXPECT_THAT(std::vector(first, first + symbols->keysyms_per_keycode),
                testing::Each(Eq(xcb_keysym_t{XCB_NO_SYMBOL})));
}

TEST_P(InputPosterTest, AScrollAndItsReturnCancelOut)
{
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    letPass(whileNothingHappens);
    std::map<int, double> sums;
    int horizontal = 0;
    for (const auto &event : observer->events()) {
        for (const auto &[axis, value] : event.valuators) {
            sums[axis] += value;
        }
        if (event.kind == XRawEvent::Kind::buttonPress) {
            horizontal += event.detail == 7 ? 1 : -1;
        }
    }
    EXPECT_EQ(horizontal, 0);
    for (const auto &[axis, sum] : sums) {
        EXPECT_EQ(sum, 0) << axis;
    }
    EXPECT_FALSE(observer->events().empty());
    EXPECT_FALSE(observer->isAnythingHeldDown());
}

TEST_P(InputPosterTest, EveryActionResetsTheIdleClock)
{
    moveTo(300, 200);
    const std::vector<std::vector<InputEvent>> actions{
        {MouseMoved{{301, 201}}},
        {MouseMoved{{300, 200}}},
        {press(leftCommand), release(leftCommand)},
        {press(rightCommand), release(rightCommand)},
        {ScrollPixels{1}},
        {ScrollPixels{-1}},
    };
    for (const auto &action : actions) {
        ASSERT_TRUE(becomesIdle(observer->client()));
        const auto start = std::chrono::steady_clock::now();
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
        }
        EXPECT_TRUE(becomesActiveAfter(observer->client(), start));
    }
}

TEST_P(InputPosterTest, AMoveOutOfACornerResetsTheIdleClockThoughThePointerStays)
{
    const std::vector<std::pair<PointerLocation, PointerLocation>> moves{{{0, 0}, {-1, -1}},
                                                                         {{1279, 799}, {1280, 800}}};
    for (const auto &[corner, beyond] : moves) {
        moveTo(corner.x, corner.y);
        ASSERT_TRUE(becomesIdle(observer->client()));
        const auto start = std::chrono::steady_clock::now();
        moveTo(beyond.x, beyond.y);
        EXPECT_THAT(poster->pointerLocation(), Optional(corner));
        EXPECT_TRUE(becomesActiveAfter(observer->client(), start));
    }
}

TEST_P(InputPosterTest, AScrollOfAnySizeIsSurvived)
{
    using Range = std::numeric_limits<std::int32_t>;
    for (const auto pixels : {0, Range::max(), Range::min()}) {
        EXPECT_TRUE(poster->post(ScrollPixels{pixels}));
    }
    settle();
    EXPECT_TRUE(poster->isOpen());
    EXPECT_FALSE(observer->isAnythingHeldDown());
}

INSTANTIATE_TEST_SUITE_P(Backends, InputPosterTest,
                         testing::Values(Backend{"XtestOnXvfb", false, openXtest},
                                         Backend{"XtestOnXorg", true, openXtest},
                                         Backend{"FallbackOnXvfb", false, openFallback}),
                         [](const auto &backend) { return std::string(backend.param.name); });

} // namespace platform

// Scrolling by a pixel on a real X server, as its clients see it.

#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XObserver.h"
#include "Tests/Support/Xorg/PrivateXorg.h"
#include "Tests/Support/Xorg/TextViewProgram.h"

#include <gmock/gmock.h>
#include <xcb/xinput.h>

#include <limits>

namespace platform {

namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testsupport::eventually;
using testsupport::letPass;
using testsupport::PrivateRuntime;
using testsupport::PrivateXorg;
using testsupport::TextViewProgram;
using testsupport::xAnswer;
using testsupport::XClient;
using testsupport::XObserver;
using testsupport::XRawEvent;
using Toolkit = TextViewProgram::Toolkit;

constexpr int verticalAxis = 3; // of the server's mice
constexpr double pixel = 2;     // units of the axis, whose notch has 120
constexpr std::chrono::milliseconds returnDelay(100);

class SmoothScrollTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(server.isOpen());
        poster = testsupport::posterOn(server.display());
        ASSERT_NE(poster, nullptr);
    }

    void pulse() const
    {
        EXPECT_TRUE(poster->post(ScrollPixels{1}));
        letPass(returnDelay);
        EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    }

    PrivateRuntime runtime;
    PrivateXorg server{runtime};
    std::unique_ptr<InputPoster> poster;
};

// What each raw event moved the vertical axis by, those that do not move it left out.
std::vector<double> steps(XObserver &observer)
{
    std::vector<double> steps;
    for (const auto &event : observer.events(XRawEvent::Kind::motion)) {
        if (event.valuator(verticalAxis) != 0) {
            steps.push_back(event.valuator(verticalAxis));
        }
    }
    return steps;
}

// The value of a device's vertical axis, as any client may ask it.
double axisValue(const XClient &x, std::uint16_t device)
{
    const auto reply =
        xAnswer(xcb_input_xi_query_device_reply, x.get(), xcb_input_xi_query_device(x.get(), device));
    for (auto it = xcb_input_xi_device_info_classes_iterator(
             xcb_input_xi_query_device_infos_iterator(reply.get()).data);
         it.rem > 0; xcb_input_device_class_next(&it)) {
        const auto &axis = reinterpret_cast<const xcb_input_valuator_class_t &>(*it.data); // NOLINT
        if (it.data->type == XCB_INPUT_DEVICE_CLASS_TYPE_VALUATOR && axis.number == verticalAxis) {
            return axis.value.integral;
        }
    }
    return -1;
}

} // namespace

TEST(SmoothScrollUnitsTest, APixelIsASixtiethOfANotchDownwards)
{
    EXPECT_EQ(unitsOfOnePixel(120), 2);
    EXPECT_EQ(unitsOfOnePixel(-120), -2);
    EXPECT_EQ(unitsOfOnePixel(15), 1);
    EXPECT_EQ(unitsOfOnePixel(-15), -1);
    EXPECT_EQ(unitsOfOnePixel(1.5), 1);
    EXPECT_EQ(unitsOfOnePixel(1e300), 32767);
}

TEST(SmoothScrollUnitsTest, AnAxisThatCountsNotchesHasNoPixel)
{
    EXPECT_EQ(unitsOfOnePixel(1), 0);
    EXPECT_EQ(unitsOfOnePixel(-1), 0);
    EXPECT_EQ(unitsOfOnePixel(0), 0);
    EXPECT_EQ(unitsOfOnePixel(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(SmoothScrollTest, TheAxisGoesAFractionOfANotchDownAndBack)
{
    server.mouse().moveBy(5, 5);
    XObserver observer(server.display());
    ASSERT_TRUE(poster->post(ScrollPixels{1}));
    ASSERT_TRUE(eventually([&] { return steps(observer).size() == 1; }));
    const auto mouse = observer.events().back().sourceDevice;
    EXPECT_EQ(axisValue(observer.client(), mouse), pixel);

    ASSERT_TRUE(poster->post(ScrollPixels{-1}));
    ASSERT_TRUE(eventually([&] { return steps(observer).size() == 2; }));
    EXPECT_THAT(steps(observer), ElementsAre(pixel, -pixel));
    EXPECT_EQ(axisValue(observer.client(), mouse), 0);
    EXPECT_TRUE(observer.events(XRawEvent::Kind::buttonPress).empty());
}

TEST_F(SmoothScrollTest, ThePointerStaysWhereItIs)
{
    server.mouse().moveBy(5, 5);
    XObserver observer(server.display());
    const auto before = observer.pointer();
    pulse();
    ASSERT_TRUE(eventually([&] { return steps(observer).size() == 2; }));
    EXPECT_EQ(observer.pointer(), before);
}

TEST_F(SmoothScrollTest, TheMouseThatMovedLastIsTheOneThatScrolls)
{
    XObserver observer(server.display());
    for (auto *mouse : {&server.mouse(), &server.secondMouse(), &server.mouse()}) {
        observer.clear();
        mouse->moveBy(5, 5);
        ASSERT_TRUE(eventually([&] { return observer.events().size() == 1; }));
        const auto moved = observer.events().front().sourceDevice;
        pulse();
        ASSERT_TRUE(eventually([&] { return steps(observer).size() == 2; }));
        EXPECT_EQ(observer.events().back().sourceDevice, moved);
    }
}

TEST_F(SmoothScrollTest, AMouseThatNobodyTouchedYetIsScrolledToo)
{
    XObserver observer(server.display());
    pulse();
    ASSERT_TRUE(eventually([&] { return steps(observer).size() == 2; }));
    EXPECT_THAT(steps(observer), ElementsAre(pixel, -pixel));
}

TEST_F(SmoothScrollTest, WhatIsStillToBeSentGoesWithThePoster)
{
    XObserver observer(server.display());
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    poster.reset();
    letPass(returnDelay);
    EXPECT_THAT(steps(observer), testing::IsEmpty());
}

TEST_F(SmoothScrollTest, BothHalvesResetTheIdleClock)
{
    server.mouse().moveBy(5, 5);
    const XClient x(server.display());
    for (const int pixels : {1, -1}) {
        ASSERT_TRUE(becomesIdle(x));
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(poster->post(ScrollPixels{pixels}));
        EXPECT_TRUE(becomesActiveAfter(x, start));
    }
}

struct View
{
    const char *name;
    Toolkit toolkit;
    double fraction; // of the way down
    bool hasMouseMoved;
};

void PrintTo(const View &view, std::ostream *stream)
{
    *stream << view.name;
}

class TextViewScrollTest : public SmoothScrollTest, public testing::WithParamInterface<View>
{
protected:
    // A pointer on the screen may be anywhere without any device having moved.
    void putPointerIntoWindow()
    {
        const XClient x(server.display());
        xcb_warp_pointer(x.get(), XCB_WINDOW_NONE, x.root(), 0, 0, 0, 0, 250, 200);
        x.sync();
        if (GetParam().hasMouseMoved) {
            server.mouse().moveBy(20, 10);
        }
    }
};

TEST_P(TextViewScrollTest, EndsWhereItBegan)
{
    TextViewProgram view(runtime, GetParam().toolkit, GetParam().fraction);
    ASSERT_TRUE(view.isReady());
    const auto start = view.position();
    putPointerIntoWindow();
    for (int i = 0; i < 3; ++i) {
        letPass(std::chrono::milliseconds(300)); // as between two actions: what belongs together has ended
        pulse();
    }
    letPass(std::chrono::milliseconds(300));
    EXPECT_THAT(view.positions(), Each(Ge(start - 0.5)));
    EXPECT_THAT(view.position(), DoubleNear(start, 0.5));

    // It is under the pointer, and does scroll.
    server.mouse().turnWheelBy(120);
    EXPECT_TRUE(eventually([&] { return view.position() > start + 10; }));
}

INSTANTIATE_TEST_SUITE_P(Views, TextViewScrollTest,
                         testing::Values(View{"QtWidgetsTop", Toolkit::qtWidgets, 0, true},
                                         View{"QtWidgetsMiddle", Toolkit::qtWidgets, 0.5, true},
                                         View{"QtWidgetsUntouchedMouse", Toolkit::qtWidgets, 0.5, false},
                                         View{"QtQuickTop", Toolkit::qtQuick, 0, true},
                                         View{"QtQuickMiddle", Toolkit::qtQuick, 0.5, true},
                                         View{"QtQuickUntouchedMouse", Toolkit::qtQuick, 0.5, false},
                                         View{"GtkTop", Toolkit::gtk, 0, true},
                                         View{"GtkMiddle", Toolkit::gtk, 0.5, true},
                                         View{"GtkUntouchedMouse", Toolkit::gtk, 0.5, false}),
                         [](const auto &view) { return std::string(view.param.name); });

} // namespace platform

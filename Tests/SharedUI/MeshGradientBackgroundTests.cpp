#include "SharedUI/MeshGradientBackground.h"

#include "Tests/SharedUI/MeshGradientReference.h"
#include "Tests/SharedUI/SharedUITest.h"
#include "Tests/Support/Eventually.h"

#include <QSignalSpy>

namespace sharedui {

namespace {

using testsupport::eventually;

class MeshGradientBackgroundTest : public SharedUITest
{
protected:
    MeshGradientBackground &showBackground(const QByteArray &fields = {}, const QSize &size = {200, 200})
    {
        view.resize(size);
        auto &item = show("MeshGradientBackground { width: " + QByteArray::number(size.width()) +
                          "; height: " + QByteArray::number(size.height()) + "; " + fields + "}");
        return dynamic_cast<MeshGradientBackground &>(item);
    }

    void advance(double seconds) { platform.scheduler().advance(platform::Seconds(seconds)); }
    [[nodiscard]] std::size_t clocks() { return platform.scheduler().runningTimers(); }

    // The platform's clock starts at this many seconds after 2001-01-01.
    static constexpr double start = 1'700'000'000.0 - 978'307'200.0;
};

const std::vector<QColor> systemColors{QColor(0xAF, 0x52, 0xDE), QColor(0x00, 0x7A, 0xFF),
                                       QColor(0x32, 0xAD, 0xE6), QColor(0x34, 0xC7, 0x59)};

TEST_F(MeshGradientBackgroundTest, HasItsDefaultsInBothAppearances)
{
    const auto &background = showBackground();
    EXPECT_EQ(background.speed(), 0.5);
    EXPECT_EQ(background.colors(), QList<QColor>(systemColors.begin(), systemColors.end()));
    setDark(true);
    EXPECT_EQ(background.colors(), QList({QColor(0xBF, 0x5A, 0xF2), QColor(0x0A, 0x84, 0xFF),
                                          QColor(0x64, 0xD2, 0xFF), QColor(0x30, 0xD1, 0x58)}));
}

struct Moment
{
    QSize size;
    double seconds; // after the platform's clock has started
};

void PrintTo(const Moment &moment, std::ostream *stream)
{
    *stream << moment.size.width() << "x" << moment.size.height() << " after " << moment.seconds << " s";
}

class MeshGradientAccuracy : public MeshGradientBackgroundTest, public testing::WithParamInterface<Moment>
{};

TEST_P(MeshGradientAccuracy, IsWithinThreeLevelsOfTheReference)
{
    const auto &[size, seconds] = GetParam();
    showBackground({}, size);
    advance(seconds);
    const auto image = picture();
    const double scale = static_cast<double>(image.width()) / size.width();
    const auto reference = meshGradientReference(size, (start + seconds) * 0.5, systemColors, scale);
    const int difference = greatestDifference(image, reference);
    EXPECT_LE(difference, 3);
    RecordProperty("difference", difference);
}

INSTANTIATE_TEST_SUITE_P(Moments, MeshGradientAccuracy,
                         testing::Values(Moment{{640, 400}, 0}, Moment{{640, 400}, 3},
                                         Moment{{301, 467}, 5.5}, Moment{{90, 41}, 8},
                                         Moment{{1280, 800}, 1}));

TEST_F(MeshGradientBackgroundTest, ThreeLevelsTellAnotherMomentApart)
{
    showBackground("speed: 0;", {320, 200});
    const auto image = picture();
    const double scale = image.width() / 320.0;
    EXPECT_GT(greatestDifference(image, meshGradientReference({320, 200}, 0.2, systemColors, scale)), 3);
}

TEST_F(MeshGradientBackgroundTest, StandsStillAtSpeedZero)
{
    showBackground("speed: 0;");
    const auto image = picture();
    EXPECT_EQ(clocks(), 0U);
    advance(10);
    EXPECT_EQ(picture(), image);
    const auto reference = meshGradientReference({200, 200}, 0, systemColors, image.width() / 200.0);
    EXPECT_LE(greatestDifference(image, reference), 3);
}

TEST_F(MeshGradientBackgroundTest, OneColourIsThatOfAllBlobs)
{
    const auto &background = showBackground("speed: 0; colors: ['#ff8000'];");
    EXPECT_EQ(background.colors(), QList({QColor(255, 128, 0)}));
    const auto image = picture();
    const auto reference = meshGradientReference({200, 200}, 0, {QColor(255, 128, 0)}, image.width() / 200.0);
    EXPECT_LE(greatestDifference(image, reference), 3);
}

TEST_F(MeshGradientBackgroundTest, OfMoreThanFourColoursTheFirstFourAreUsed)
{
    auto &background = showBackground("speed: 0; colors: ['red', 'lime', 'blue', 'white'];");
    const auto image = picture();
    auto colors = background.colors();
    colors.append(Qt::yellow);
    background.setColors(colors);
    EXPECT_EQ(picture(), image);
    colors[3] = Qt::yellow;
    background.setColors(colors);
    EXPECT_NE(picture(), image);
}

TEST_F(MeshGradientBackgroundTest, TwoOfTheSameFieldsShowTheSame)
{
    view.resize(400, 150);
    show("Item { MeshGradientBackground { width: 200; height: 150 }"
         "MeshGradientBackground { x: 200; width: 200; height: 150 } }");
    advance(7);
    const auto image = picture();
    const int half = image.width() / 2;
    EXPECT_EQ(image.copy(0, 0, half, image.height()), image.copy(half, 0, half, image.height()));
}

TEST_F(MeshGradientBackgroundTest, StaysInsideOfItsBounds)
{
    view.setColor(Qt::white);
    show("MeshGradientBackground { x: 50; y: 50; width: 100; height: 100 }");
    const auto image = picture();
    EXPECT_EQ(colorAt(image, 49, 100), QColor(Qt::white));
    EXPECT_EQ(colorAt(image, 150, 100), QColor(Qt::white));
    EXPECT_NE(colorAt(image, 50, 100), QColor(Qt::white));
}

TEST_F(MeshGradientBackgroundTest, IsDrawnSixtyTimesASecondAndMoves)
{
    showBackground();
    ASSERT_TRUE(eventually([this] { return frames > 0; }));
    EXPECT_EQ(clocks(), 1U);
    const auto image = picture();
    for (int i = 0; i < 3; ++i) {
        frames = 0;
        advance(0.0161);
        EXPECT_TRUE(eventually([this] { return frames > 0; }));
    }
    advance(1);
    EXPECT_NE(picture(), image);
}

TEST_F(MeshGradientBackgroundTest, HasNoClockWhileItIsNotShown)
{
    auto &background = showBackground();
    EXPECT_EQ(clocks(), 1U);
    background.setVisible(false);
    EXPECT_EQ(clocks(), 0U);
    background.setVisible(true);
    EXPECT_EQ(clocks(), 1U);
    view.hide();
    EXPECT_TRUE(eventually([this] { return clocks() == 0; }));
    view.show();
    EXPECT_TRUE(eventually([this] { return clocks() == 1; }));
    background.setWidth(0);
    EXPECT_EQ(clocks(), 0U);
    background.setWidth(10);
    EXPECT_EQ(clocks(), 1U);
    background.setParentItem(nullptr);
    EXPECT_EQ(clocks(), 0U);
}

TEST_F(MeshGradientBackgroundTest, DrawsNothingWhileItIsHidden)
{
    auto &background = showBackground();
    ASSERT_TRUE(eventually([this] { return frames > 0; }));
    background.setVisible(false);
    testsupport::letPass(std::chrono::milliseconds(100)); // the frame without it
    frames = 0;
    advance(10);
    testsupport::letPass(std::chrono::milliseconds(200));
    EXPECT_EQ(frames, 0);
    background.setVisible(true);
    EXPECT_TRUE(eventually([this] { return frames > 0; }));
}

TEST_F(MeshGradientBackgroundTest, HasNoClockForASpeedThatIsNoNumberOrNone)
{
    auto &background = showBackground();
    for (const double speed : {0.0, std::nan(""), HUGE_VAL}) {
        background.setSpeed(speed);
        EXPECT_EQ(clocks(), 0U);
        EXPECT_FALSE(picture().isNull());
        background.setSpeed(-1);
        EXPECT_EQ(clocks(), 1U);
    }
    background.setSpeed(1e308);
    EXPECT_FALSE(picture().isNull());
}

TEST_F(MeshGradientBackgroundTest, StandsStillWhereTheUserWantsLessMotion)
{
    showBackground();
    platform.appearance().prefer({.reducesMotion = true});
    EXPECT_EQ(clocks(), 0U);
    platform.appearance().prefer({});
    EXPECT_EQ(clocks(), 1U);
}

TEST_F(MeshGradientBackgroundTest, LeavesNoClockBehind)
{
    showBackground();
    EXPECT_EQ(clocks(), 1U);
    make("Item {}");
    EXPECT_EQ(clocks(), 0U);
}

TEST_F(MeshGradientBackgroundTest, TellsOfItsFields)
{
    auto &background = showBackground();
    const QSignalSpy colors(&background, &MeshGradientBackground::colorsChanged);
    const QSignalSpy speed(&background, &MeshGradientBackground::speedChanged);
    background.setColors({Qt::red});
    background.setSpeed(2);
    background.setSpeed(2);
    background.resetColors();
    EXPECT_EQ(background.colors().size(), 4);
    EXPECT_EQ(colors.size(), 2);
    EXPECT_EQ(speed.size(), 1);
}

using MeshGradientBackgroundDeathTest = MeshGradientBackgroundTest;

TEST_F(MeshGradientBackgroundDeathTest, StopsTheProcessWhenItIsDrawnWithoutAnyColour)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // Qt has threads
    EXPECT_DEATH(
        {
            showBackground("colors: [];");
            static_cast<void>(picture());
        },
        "Fatal error: Division by zero in remainder operation");
}

} // namespace

} // namespace sharedui

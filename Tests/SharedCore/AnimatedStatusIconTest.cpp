#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"

#include "Tests/Fakes/FakeMenuBar.h"

#include <gtest/gtest.h>

#include <limits>

namespace sharedcore {

namespace {

using platform::Seconds;
using platform::TemplateImage;

// Each is known by its width.
std::vector<TemplateImage> framesOfWidths(std::initializer_list<double> widths)
{
    std::vector<TemplateImage> frames;
    for (const double width : widths) {
        frames.push_back({width, 18, {}});
    }
    return frames;
}

class AnimatedStatusIconTest : public testing::Test
{
protected:
    void start(double bpm = 60.0) { icon.startAnimation(item, frames, bpm); }
    void advance(double seconds) { menuBar.scheduler().advance(Seconds(seconds)); }
    [[nodiscard]] std::size_t timers() { return menuBar.scheduler().runningTimers(); }

    [[nodiscard]] std::vector<double> shownWidths() const
    {
        std::vector<double> widths;
        for (const auto &image : item->shown) {
            widths.push_back(image.width);
        }
        return widths;
    }

    fakes::FakeMenuBar menuBar;
    std::shared_ptr<fakes::FakeStatusItem> item = std::make_shared<fakes::FakeStatusItem>();
    std::vector<TemplateImage> frames = framesOfWidths({1, 2, 3, 4});
    AnimatedStatusIcon icon;
};

using Widths = std::vector<double>;

TEST_F(AnimatedStatusIconTest, IsIdleAtFirst)
{
    EXPECT_FALSE(icon.isAnimating());
    EXPECT_EQ(icon.frameIndex(), 0);
    EXPECT_EQ(timers(), 0U);
}

TEST_F(AnimatedStatusIconTest, PlaysTheFramesOnceABeatAndStartsAgain)
{
    start();
    EXPECT_TRUE(icon.isAnimating());
    EXPECT_EQ(shownWidths(), Widths{});
    advance(0.25);
    EXPECT_EQ(shownWidths(), Widths{1});
    advance(1.0);
    EXPECT_EQ(shownWidths(), (Widths{1, 2, 3, 4, 1}));
}

TEST_F(AnimatedStatusIconTest, TicksEightTimesABeatWithEightFrames)
{
    frames = framesOfWidths({1, 2, 3, 4, 5, 6, 7, 8});
    icon.startAnimation(item, frames);
    advance(0.124);
    EXPECT_EQ(icon.frameIndex(), 0);
    advance(0.001);
    EXPECT_EQ(icon.frameIndex(), 1);
    start(120);
    advance(0.0624);
    EXPECT_EQ(icon.frameIndex(), 0);
    advance(0.0001);
    EXPECT_EQ(icon.frameIndex(), 1);
}

TEST_F(AnimatedStatusIconTest, ItsIndexIsNeverWrapped)
{
    start();
    advance(3600);
    EXPECT_EQ(icon.frameIndex(), 4 * 3600);
    EXPECT_EQ(item->shown.size(), 4U * 3600);
}

TEST_F(AnimatedStatusIconTest, StartedTwiceHasOneTimerAndBeginsAtTheFirstFrame)
{
    start();
    advance(0.5);
    start();
    EXPECT_EQ(timers(), 1U);
    EXPECT_EQ(icon.frameIndex(), 0);
    advance(0.25);
    EXPECT_EQ(shownWidths(), (Widths{1, 2, 1}));
    EXPECT_EQ(icon.frameIndex(), 1);
}

TEST_F(AnimatedStatusIconTest, StartsAgainAtANewRate)
{
    start();
    advance(0.5);
    icon.updateBPM(item, frames, 120);
    EXPECT_EQ(timers(), 1U);
    EXPECT_EQ(icon.frameIndex(), 0);
    advance(0.125);
    EXPECT_EQ(shownWidths(), (Widths{1, 2, 1}));
}

TEST_F(AnimatedStatusIconTest, AtNoRateAtAllNoFrameIsEverDue)
{
    start(0);
    EXPECT_TRUE(icon.isAnimating());
    advance(1e6);
    EXPECT_EQ(icon.frameIndex(), 0);
}

TEST_F(AnimatedStatusIconTest, AtARateThatIsNoneAFrameIsDueAllTheTime)
{
    for (const double bpm :
         {-60.0, -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        start(bpm);
        advance(0.00105);
        EXPECT_EQ(icon.frameIndex(), 10) << bpm;
    }
}

TEST_F(AnimatedStatusIconTest, CountsTheTicksOfAnItemWithoutAButton)
{
    item->hasButton = false;
    start();
    advance(0.5);
    EXPECT_EQ(icon.frameIndex(), 2);
    EXPECT_EQ(shownWidths(), Widths{});
    item->hasButton = true;
    advance(0.25);
    EXPECT_EQ(shownWidths(), Widths{3});
}

TEST_F(AnimatedStatusIconTest, KeepsItsFrameWhenItIsStopped)
{
    start();
    advance(0.5);
    icon.stopAnimation();
    EXPECT_FALSE(icon.isAnimating());
    EXPECT_EQ(icon.frameIndex(), 0);
    EXPECT_EQ(timers(), 0U);
    advance(10);
    EXPECT_EQ(shownWidths(), (Widths{1, 2}));
}

TEST_F(AnimatedStatusIconTest, StoppedWhileIdleStaysIdle)
{
    icon.stopAnimation();
    icon.stopAnimation();
    EXPECT_FALSE(icon.isAnimating());
    EXPECT_EQ(icon.frameIndex(), 0);
    start();
    advance(0.25);
    EXPECT_EQ(shownWidths(), Widths{1});
}

TEST_F(AnimatedStatusIconTest, LivesWithItsItemWhileItIsAnimated)
{
    AnimatedStatusIcon().startAnimation(item, frames, 60);
    const std::weak_ptr<fakes::FakeStatusItem> held = item;
    item.reset();
    advance(0.5);
    ASSERT_FALSE(held.expired());
    EXPECT_EQ(held.lock()->shown.size(), 2U);
}

TEST_F(AnimatedStatusIconTest, LetsGoOfItsItemWhenItIsStopped)
{
    start();
    const std::weak_ptr<fakes::FakeStatusItem> held = item;
    item.reset();
    icon.stopAnimation();
    advance(0);
    EXPECT_TRUE(held.expired());
}

TEST_F(AnimatedStatusIconTest, ACopyIsTheSameIcon)
{
    start();
    auto copy = icon;
    copy.stopAnimation();
    EXPECT_FALSE(icon.isAnimating());
}

TEST_F(AnimatedStatusIconTest, WithoutFramesIsNeverDue)
{
    frames.clear();
    start();
    EXPECT_TRUE(icon.isAnimating());
    advance(1e9);
    EXPECT_EQ(icon.frameIndex(), 0);
}

using AnimatedStatusIconDeathTest = AnimatedStatusIconTest;

TEST_F(AnimatedStatusIconDeathTest, ATickWithoutFramesStopsTheProcess)
{
    frames.clear();
    start();
    EXPECT_DEATH(advance(std::numeric_limits<double>::infinity()),
                 "Fatal error: Division by zero in remainder operation");
}

} // namespace

} // namespace sharedcore

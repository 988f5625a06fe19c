// The ends of things: of the range of a counter, of the engine itself.

#include "Tests/App/EngineTest.h"

#include <limits>
#include <optional>

namespace stirra {

namespace {

using EngineDeathTest = EngineTest;

TEST_F(EngineDeathTest, ACountAboveTheRangeStopsTheProcess)
{
    engine.toggle();
    ASSERT_TRUE(engine.setProperty("totalJiggles", std::numeric_limits<qint64>::max()));
    EXPECT_DEATH(advanceIntervals(1), "Fatal error: arithmetic overflow");
}

TEST_F(EngineDeathTest, AnUptimeAboveTheRangeStopsTheProcess)
{
    engine.toggle();
    ASSERT_TRUE(engine.setProperty("uptimeSeconds", std::numeric_limits<qint64>::max()));
    EXPECT_DEATH(advanceSeconds(1), "Fatal error: arithmetic overflow");
}

TEST(EngineEnd, ATimerThatOutlivesItsEngineDoesNothing)
{
    fakes::FakePlatform platform;
    std::optional<StirraEngine> engine(std::in_place);
    engine->toggle();
    engine.reset();
    EXPECT_EQ(platform.scheduler().runningTimers(), 2U);
    platform.scheduler().advance(platform::Seconds(300));
    EXPECT_TRUE(platform.inputPoster().posted.empty());
}

TEST(EngineEnd, AReturnThatIsPendingComesAllTheSame)
{
    fakes::FakePlatform platform;
    std::optional<StirraEngine> engine(std::in_place);
    engine->toggle();
    platform.scheduler().advance(platform::Seconds(30));
    engine.reset();
    platform.scheduler().advance(platform::Seconds(1));
    EXPECT_EQ(platform.inputPoster().posted.size(), 2U);
}

} // namespace

} // namespace stirra

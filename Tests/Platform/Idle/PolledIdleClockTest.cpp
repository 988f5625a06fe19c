#include "Platform/Linux/Idle/PolledIdleClock.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using namespace std::chrono_literals;

class PolledIdleClockTest : public testing::Test
{
protected:
    bool after(std::chrono::milliseconds time, PolledIdleClock::Reading next)
    {
        now += time;
        reading = next;
        return clock.isIdle();
    }

    PolledIdleClock::Reading reading;
    PolledIdleClock::Time now{};
    PolledIdleClock clock{QStringLiteral("clock"), [this] { return reading; }, [this] { return now; }};
};

} // namespace

TEST_F(PolledIdleClockTest, IsIdleOnceItHasGrownForASecond)
{
    EXPECT_FALSE(after(0ms, 5000));
    EXPECT_FALSE(after(999ms, 5999));
    EXPECT_TRUE(after(1ms, 6000));
    EXPECT_TRUE(after(1h, 3606000));
}

TEST_F(PolledIdleClockTest, IsNotIdleWhenItHasStartedAnew)
{
    static_cast<void>(after(0ms, 0));
    ASSERT_TRUE(after(1500ms, 1500));
    EXPECT_FALSE(after(20ms, 3));
    EXPECT_FALSE(after(900ms, 903));
    EXPECT_TRUE(after(100ms, 1003));
}

TEST_F(PolledIdleClockTest, CountsInSecondsAsWell)
{
    static_cast<void>(after(0ms, 0));
    EXPECT_FALSE(after(500ms, 0));
    EXPECT_TRUE(after(1000ms, 1));
    EXPECT_TRUE(after(300ms, 1));
    EXPECT_FALSE(after(100ms, 0));
}

TEST_F(PolledIdleClockTest, IsNotIdleWhileItDoesNotAnswer)
{
    static_cast<void>(after(0ms, 10));
    ASSERT_TRUE(after(2s, 2010));
    EXPECT_FALSE(after(20ms, std::nullopt));
    EXPECT_FALSE(after(20ms, 2050));
    EXPECT_TRUE(after(1s, 3050));
}

} // namespace platform

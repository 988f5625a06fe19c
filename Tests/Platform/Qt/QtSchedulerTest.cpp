// The run loop's timers. Time is the machine's, so what is asserted is order and place on the grid.

#include "Platform/Qt/QtScheduler.h"

#include "Tests/Support/Eventually.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <thread>

namespace platform {

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::SizeIs;
using testsupport::eventually;
using testsupport::letPass;
using Clock = std::chrono::steady_clock;

constexpr Seconds interval{0.02};

class QtSchedulerTest : public testing::Test
{
protected:
    // Counts the firings in intervals since the start.
    std::shared_ptr<RepeatingTimer> record(Seconds every = interval)
    {
        start = Clock::now();
        return scheduler.repeat(every, [this, every] { fired.push_back((Clock::now() - start) / every); });
    }

    bool firesTimes(std::size_t times)
    {
        return eventually([&] { return fired.size() >= times; });
    }

    QtScheduler scheduler;
    Clock::time_point start;
    std::vector<double> fired;
};

// The point of the grid that a firing belongs to: the last one that it did not come before.
std::vector<int> gridPoints(const std::vector<double> &fired)
{
    std::vector<int> points;
    for (const double time : fired) {
        points.push_back(static_cast<int>(std::floor(time)));
    }
    return points;
}

bool isStrictlyIncreasing(const std::vector<int> &values)
{
    return std::ranges::adjacent_find(values, std::greater_equal()) == values.end();
}

} // namespace

TEST_F(QtSchedulerTest, NothingFiresBeforeTheRunLoopRuns)
{
    const auto timer = record(Seconds(0.001));
    scheduler.after(Seconds(0), [this] { fired.push_back(0); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_THAT(fired, SizeIs(0));
    EXPECT_TRUE(firesTimes(2));
    timer->invalidate();
}

TEST_F(QtSchedulerTest, AnInvalidTimerLetsGoOfWhatItsCallbackHolds)
{
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> seen = held;
    const auto timer = scheduler.repeat(interval, [held = std::move(held)] { static_cast<void>(held); });
    ASSERT_FALSE(seen.expired());
    timer->invalidate();
    EXPECT_TRUE(seen.expired());
}

TEST_F(QtSchedulerTest, ACallbackThatInvalidatesItsTimerKeepsWhatItHoldsUntilItReturns)
{
    auto held = std::make_shared<int>(7);
    const std::weak_ptr<int> seen = held;
    std::shared_ptr<RepeatingTimer> timer;
    int found = 0;
    timer = scheduler.repeat(interval, [&timer, &found, held = std::move(held)] {
        timer->invalidate();
        found = *held;
    });
    EXPECT_TRUE(eventually([&] { return found == 7; }));
    EXPECT_TRUE(eventually([&] { return seen.expired(); }));
}

TEST_F(QtSchedulerTest, NoFiringComesBeforeItsPointOfTheGridAndNoPointFiresTwice)
{
    const auto timer = record();
    ASSERT_TRUE(firesTimes(20));
    timer->invalidate();
    const auto points = gridPoints(fired);
    EXPECT_GE(points.front(), 1);
    EXPECT_TRUE(isStrictlyIncreasing(points)) << testing::PrintToString(points);
}

TEST_F(QtSchedulerTest, TheDelaysOfTheFiringsDoNotAddUp)
{
    constexpr Seconds every{0.2};
    std::vector<double> lateness; // for the point of the grid, as a part of the interval
    start = Clock::now();
    const auto timer = scheduler.repeat(every, [&] {
        const double time = (Clock::now() - start) / every;
        lateness.push_back(time - std::floor(time));
        std::this_thread::sleep_for(every / 8);
    });
    ASSERT_TRUE(eventually([&] { return lateness.size() >= 12; }));
    timer->invalidate();
    // Were the work in the callback added to each interval, the firings would spread all over the grid.
    std::ranges::sort(lateness);
    EXPECT_LT(lateness[lateness.size() / 2], 0.25);
}

TEST_F(QtSchedulerTest, WhatTheRunLoopMissedFiresOnceAndTheGridStays)
{
    const auto timer = record();
    ASSERT_TRUE(firesTimes(2));
    std::this_thread::sleep_for(interval * 10.5);
    const auto before = fired.size();
    const double blockedUntil = (Clock::now() - start) / interval;
    ASSERT_TRUE(firesTimes(before + 4));
    timer->invalidate();

    const auto points = gridPoints(fired);
    EXPECT_TRUE(isStrictlyIncreasing(points)) << testing::PrintToString(points);
    EXPECT_GE(fired[before], blockedUntil);
}

TEST_F(QtSchedulerTest, ATimerIsInvalidAtOnceAlsoFromItsOwnCallback)
{
    int count = 0;
    std::shared_ptr<RepeatingTimer> timer;
    timer = scheduler.repeat(Seconds(0.001), [&] {
        ++count;
        timer->invalidate();
        timer->invalidate();
    });
    ASSERT_TRUE(eventually([&] { return count > 0; }));
    letPass(std::chrono::milliseconds(50));
    EXPECT_EQ(count, 1);
    timer->invalidate();
}

TEST_F(QtSchedulerTest, ATimerThatIsDueButInvalidDoesNotFire)
{
    const auto timer = record(Seconds(0.001));
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    timer->invalidate();
    letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(fired, SizeIs(0));
}

TEST_F(QtSchedulerTest, ATimerRunsOnWithoutItsHandle)
{
    const auto count = std::make_shared<int>(0); // which outlives this test, as the timer does
    scheduler.repeat(interval, [count] { ++*count; }).reset();
    EXPECT_TRUE(eventually([&] { return *count >= 3; }));
}

TEST_F(QtSchedulerTest, ACallbackMayMakeAndInvalidateOtherTimers)
{
    const auto first = record(Seconds(0.001));
    std::shared_ptr<RepeatingTimer> second;
    int secondCount = 0;
    scheduler.after(Seconds(0.005), [&] {
        first->invalidate();
        second = scheduler.repeat(Seconds(0.001), [&] { ++secondCount; });
    });
    ASSERT_TRUE(eventually([&] { return secondCount > 2; }));
    const auto count = fired.size();
    letPass(std::chrono::milliseconds(20));
    EXPECT_EQ(fired.size(), count);
    second->invalidate();
}

TEST_F(QtSchedulerTest, AnIntervalThatIsNoneCountsAsTheShortest)
{
    for (const double bad :
         {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::infinity()}) {
        int count = 0;
        const auto timer = scheduler.repeat(Seconds(bad), [&count] { ++count; });
        EXPECT_TRUE(eventually([&] { return count >= 5; })) << bad;
        timer->invalidate();
    }
}

TEST_F(QtSchedulerTest, AnIntervalLongerThanAnyTimerNeverFires)
{
    for (const double longInterval : {1e10, 1e300, std::numeric_limits<double>::infinity()}) {
        const auto timer = record(Seconds(longInterval));
        letPass(std::chrono::milliseconds(20));
        EXPECT_THAT(fired, SizeIs(0)) << longInterval;
        timer->invalidate();
    }
}

TEST_F(QtSchedulerTest, DelayedWorkComesOnceAfterItsDelayInTheOrderOfTheDelays)
{
    std::vector<int> order;
    std::vector<Seconds> times;
    start = Clock::now();
    for (const int hundredths : {10, 0, 5}) {
        scheduler.after(Seconds(hundredths / 100.0), [&, hundredths] {
            order.push_back(hundredths);
            times.push_back(Clock::now() - start - Seconds(hundredths / 100.0));
        });
    }
    ASSERT_TRUE(eventually([&] { return order.size() == 3; }));
    letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(order, ElementsAre(0, 5, 10));
    EXPECT_THAT(times, Each(Ge(Seconds(0))));
}

TEST_F(QtSchedulerTest, TheTimeOfDayIsTheSystemClock)
{
    const auto before = std::chrono::system_clock::now();
    const auto now = scheduler.now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

} // namespace platform

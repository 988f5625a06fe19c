#include "Foundation/ReferenceDate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using foundation::Date;
using foundation::dateFromReferenceSeconds;
using foundation::referenceDate;
using foundation::secondsSinceReferenceDate;
using std::chrono::microseconds;

constexpr double yearInSeconds = 31'557'600;

TEST(ReferenceDate, IsTheFirstMomentOf2001)
{
    EXPECT_EQ(referenceDate.time_since_epoch(), std::chrono::seconds(978'307'200));
    EXPECT_EQ(secondsSinceReferenceDate(referenceDate), 0.0);
}

TEST(ReferenceDate, CountsSecondsWithTheirFraction)
{
    EXPECT_EQ(secondsSinceReferenceDate(referenceDate + microseconds(1'500'000)), 1.5);
    EXPECT_EQ(secondsSinceReferenceDate(referenceDate - microseconds(250'000)), -0.25);
}

TEST(ReferenceDate, GivesEveryMicrosecondBackWithin70Years)
{
    const auto span = microseconds(static_cast<std::int64_t>(70 * yearInSeconds * 1e6));
    for (auto date = referenceDate - span; date < referenceDate + span; date += span / 99'991) {
        ASSERT_EQ(dateFromReferenceSeconds(secondsSinceReferenceDate(date)), date);
    }
}

TEST(ReferenceDate, RoundsToTheNearestMicrosecond)
{
    EXPECT_EQ(dateFromReferenceSeconds(0.000'000'6), referenceDate + microseconds(1));
    EXPECT_EQ(dateFromReferenceSeconds(-0.000'000'6), referenceDate - microseconds(1));
    EXPECT_EQ(dateFromReferenceSeconds(0.000'000'4), referenceDate);
}

TEST(ReferenceDate, HasNoDateForWhatIsNoTime)
{
    EXPECT_EQ(dateFromReferenceSeconds(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
    EXPECT_EQ(dateFromReferenceSeconds(std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(dateFromReferenceSeconds(-std::numeric_limits<double>::infinity()), std::nullopt);
    EXPECT_EQ(dateFromReferenceSeconds(1e300), std::nullopt);
    EXPECT_EQ(dateFromReferenceSeconds(-1e300), std::nullopt);
}

TEST(ReferenceDate, BearsTheFarthestDates)
{
    for (const auto date : {Date::min(), Date::max()}) {
        EXPECT_TRUE(std::isfinite(secondsSinceReferenceDate(date)));
    }
}

} // namespace

#include "SharedCore/Storage/UsageStats.h"
#include "Tests/SharedCore/StorageTest.h"

#include <cmath>
#include <limits>

namespace sharedcore {

namespace {

using foundation::Date;
using foundation::referenceDate;
using std::chrono::microseconds;

class UsageStatsTest : public StorageTest
{
protected:
    // A clock that goes on by a microsecond with each reading.
    UsageStats::Clock clock()
    {
        return [this] { return now_ += microseconds(1); };
    }

    Date now_ = referenceDate + microseconds(700'000'000'000'000);
    UsageStats stats_;
};

TEST_F(UsageStatsTest, BeginWithNothing)
{
    EXPECT_EQ(stats_.launchCount, 0);
    EXPECT_EQ(stats_.firstLaunchDate, std::nullopt);
    EXPECT_EQ(stats_.lastLaunchDate, std::nullopt);
    EXPECT_EQ(stats_.totalUsageTime, 0.0);
    EXPECT_TRUE(stats_.featureUsage.empty());
}

TEST_F(UsageStatsTest, SetBothDatesAtTheFirstLaunch)
{
    const auto before = now_;
    stats_.recordLaunch(clock());
    EXPECT_EQ(stats_.launchCount, 1);
    EXPECT_EQ(stats_.lastLaunchDate, before + microseconds(1));
    EXPECT_EQ(stats_.firstLaunchDate, before + microseconds(2)); // read a second time
}

TEST_F(UsageStatsTest, ChangeTheCountAndTheLastDateOnlyAtTheSecondLaunch)
{
    stats_.recordLaunch(clock());
    auto expected = stats_;
    expected.launchCount = 2;
    expected.lastLaunchDate = now_ + microseconds(1);
    stats_.recordLaunch(clock());
    EXPECT_EQ(stats_, expected);
}

TEST_F(UsageStatsTest, ReadTheSystemsClockWhereNoneIsGiven)
{
    const auto before = foundation::currentDate();
    stats_.recordLaunch();
    EXPECT_GE(stats_.lastLaunchDate, before);
    EXPECT_LE(stats_.firstLaunchDate, foundation::currentDate());
}

TEST_F(UsageStatsTest, CountFeaturesByTheirNames)
{
    stats_.recordFeature("x");
    stats_.recordFeature("x");
    EXPECT_EQ(stats_.featureUsage, (decltype(stats_.featureUsage){{"x", 2}}));
    stats_.recordFeature("X");
    stats_.recordFeature("");
    EXPECT_EQ(stats_.featureUsage, (decltype(stats_.featureUsage){{"", 1}, {"X", 1}, {"x", 2}}));
}

TEST_F(UsageStatsTest, LeaveAbsentDatesOut)
{
    EXPECT_EQ(encoded(stats_), R"({"featureUsage":{},"launchCount":0,"totalUsageTime":0.0})");
    EXPECT_EQ(decoded<UsageStats>(encoded(stats_)), stats_);
}

TEST_F(UsageStatsTest, ComeBackEqualToTheMicrosecond)
{
    stats_ = {.launchCount = std::numeric_limits<std::int64_t>::max(),
              .firstLaunchDate = referenceDate - microseconds(1),
              .lastLaunchDate = referenceDate + microseconds(800'123'456'789'012),
              .totalUsageTime = 0.1,
              .featureUsage = {{"a", std::numeric_limits<std::int64_t>::min()}, {"\xF0\x9F\x92\x9A", 7}}};
    EXPECT_EQ(decoded<UsageStats>(encoded(stats_)), stats_);
    EXPECT_NE(encoded(stats_).find("\"lastLaunchDate\":800123456.789012"), std::string::npos);
}

TEST_F(UsageStatsTest, AreNothingWhereARequiredKeyIsMissing)
{
    EXPECT_TRUE(decoded<UsageStats>(R"({"launchCount":1,"totalUsageTime":2,"featureUsage":{}})"));
    EXPECT_FALSE(decoded<UsageStats>(R"({"totalUsageTime":2,"featureUsage":{}})"));
    EXPECT_FALSE(decoded<UsageStats>(R"({"launchCount":1,"featureUsage":{}})"));
    EXPECT_FALSE(decoded<UsageStats>(R"({"launchCount":1,"totalUsageTime":2})"));
}

TEST_F(UsageStatsTest, AreNothingWhereAnythingHasAnotherType)
{
    for (const auto *json :
         {R"({"launchCount":1.5,"totalUsageTime":2,"featureUsage":{}})",
          R"({"launchCount":9223372036854775808,"totalUsageTime":2,"featureUsage":{}})",
          R"({"launchCount":true,"totalUsageTime":2,"featureUsage":{}})",
          R"({"launchCount":1,"totalUsageTime":"2","featureUsage":{}})",
          R"({"launchCount":1,"totalUsageTime":2,"featureUsage":{"x":0.5}})",
          R"({"launchCount":1,"totalUsageTime":2,"featureUsage":[]})",
          R"({"launchCount":1,"totalUsageTime":2,"featureUsage":{},"lastLaunchDate":"now"})",
          R"({"launchCount":1,"totalUsageTime":2,"featureUsage":{}}x)"}) {
        EXPECT_EQ(decoded<UsageStats>(json), std::nullopt) << json;
    }
}

TEST_F(UsageStatsTest, KeepWhatWasStoredWhereTheyCannotBeEncoded)
{
    stats_.launchCount = 7;
    manager_.set(stats_, "usage");
    auto bad = stats_;
    bad.totalUsageTime = std::nan("");
    manager_.set(bad, "usage");
    bad = stats_;
    bad.featureUsage = {{"\xFF", 1}};
    manager_.set(bad, "usage");
    EXPECT_EQ(manager_.get<UsageStats>("usage"), stats_);
}

using UsageStatsDeathTest = UsageStatsTest;

TEST_F(UsageStatsDeathTest, EndTheProcessWhereACountIsBeyond64Bits)
{
    stats_.launchCount = std::numeric_limits<std::int64_t>::max();
    EXPECT_DEATH(stats_.recordLaunch(clock()), "arithmetic overflow");
    stats_.featureUsage["x"] = std::numeric_limits<std::int64_t>::max();
    EXPECT_DEATH(stats_.recordFeature("x"), "arithmetic overflow");
}

} // namespace

} // namespace sharedcore

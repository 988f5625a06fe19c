#include "Foundation/TimeText.h"

#include <gtest/gtest.h>

#include <ostream>
#include <regex>

namespace {

constexpr int afternoon = 15 * 3600 + 4 * 60 + 5;

std::string text(int secondsOfDay, const char *locale)
{
    return foundation::timeOfDayText(secondsOfDay, locale).toStdString();
}

TEST(TimeText, FollowsTheLocale)
{
    EXPECT_EQ(text(afternoon, "en_US.UTF-8"), "3:04:05 PM");
    EXPECT_EQ(text(afternoon, "de_DE.UTF-8"), "15:04:05");
    EXPECT_EQ(text(afternoon, "ja_JP.UTF-8"), "15:04:05");
    EXPECT_EQ(text(afternoon, "fi_FI.UTF-8"), "15.04.05");
    EXPECT_EQ(text(afternoon, "ko_KR.UTF-8"), "오후 3:04:05");
}

TEST(TimeText, PadsMinutesAndSecondsAndKnowsMidnightAndNoon)
{
    EXPECT_EQ(text(0, "en_US.UTF-8"), "12:00:00 AM");
    EXPECT_EQ(text(12 * 3600, "en_US.UTF-8"), "12:00:00 PM");
    EXPECT_EQ(text(9 * 3600 + 7, "en_US.UTF-8"), "9:00:07 AM");
    EXPECT_EQ(text(0, "de_DE.UTF-8"), "00:00:00");
}

TEST(TimeText, HasAFormForLocalesThatNobodyKnows)
{
    EXPECT_EQ(text(afternoon, "C"), "15:04:05");
    EXPECT_EQ(text(afternoon, "xx_YY.UTF-8"), "15:04:05");
    EXPECT_EQ(text(afternoon, "de_DE.UTF-8@euro"), "15:04:05");
}

TEST(TimeText, NamesNeitherDateNorZone)
{
    const auto now = foundation::localTimeText(std::chrono::system_clock::now()).toStdString();
    EXPECT_TRUE(std::regex_match(now, std::regex("[0-9]{1,2}.[0-9]{2}.[0-9]{2}( [AP]M)?"))) << now;
}

} // namespace

#include "Platform/Linux/Sysfs/LightScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace platform {

TEST(LightScale, FollowsTheCurve)
{
    EXPECT_EQ(luxOfLight(0), 0);
    EXPECT_NEAR(luxOfLight(10'000'000), 278.2, 0.01);
    EXPECT_NEAR(luxOfLight(brightestLight), 7635.05, 0.01);
    EXPECT_EQ(luxOfLight(UINT64_MAX), luxOfLight(brightestLight));
}

TEST(LightScale, GoesThereAndBack)
{
    EXPECT_EQ(lightOfLux(luxOfLight(12'345'678)), 12'345'678U);
    for (std::uint64_t light = 100'000; light <= brightestLight; light += 100'000) {
        EXPECT_EQ(lightOfLux(luxOfLight(light)), light);
    }
}

TEST(LightScale, GrowsWithTheLight)
{
    std::uint64_t last = 0;
    for (double lux = 1; lux < 7000; lux *= 1.1) {
        EXPECT_GT(lightOfLux(lux), last);
        last = lightOfLux(lux);
    }
}

TEST(LightScale, HasTwoEnds)
{
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(lightOfLux(7636), brightestLight);
    EXPECT_EQ(lightOfLux(infinite), brightestLight);
    for (const double dark : {0.0, -1.0, -infinite, std::nan("")}) {
        EXPECT_EQ(lightOfLux(dark), 0U);
    }
}

TEST(LightScale, TakesBytesLinearly)
{
    EXPECT_EQ(lightOfByte(0), 0U);
    EXPECT_EQ(lightOfByte(51), 10'000'000U);
    EXPECT_EQ(lightOfByte(255), brightestLight);
    EXPECT_EQ(lightOfByte(1e300), brightestLight);
    EXPECT_EQ(lightOfByte(-1), 0U);
    EXPECT_EQ(lightOfByte(std::nan("")), 0U);
}

} // namespace platform

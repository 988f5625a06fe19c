#include "Foundation/CheckedArithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using foundation::checkedInteger;
using foundation::checkedRemainder;
using foundation::checkedSum;
using foundation::checkedUnsignedSum;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto largestUnsigned = std::numeric_limits<std::uint64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(CheckedArithmetic, AddsUpToTheEndsOfTheRange)
{
    EXPECT_EQ(checkedSum(largest - 1, 1), largest);
    EXPECT_EQ(checkedSum(smallest + 1, -1), smallest);
}

TEST(CheckedArithmeticDeathTest, StopsTheProcessWhereASumDoesNotFit)
{
    EXPECT_DEATH(checkedSum(largest, 1), "Fatal error: arithmetic overflow");
    EXPECT_DEATH(checkedSum(smallest, -1), "Fatal error: arithmetic overflow");
}

TEST(CheckedArithmetic, AddsUnsignedNumbersUpToTheEndOfTheirRange)
{
    EXPECT_EQ(checkedUnsignedSum(largestUnsigned - 1, 1), largestUnsigned);
}

TEST(CheckedArithmeticDeathTest, StopsTheProcessWhereAnUnsignedSumDoesNotFit)
{
    EXPECT_DEATH(checkedUnsignedSum(largestUnsigned, 1), "Fatal error: arithmetic overflow");
}

TEST(CheckedArithmetic, ARemainderHasTheSignOfItsDividend)
{
    EXPECT_EQ(checkedRemainder(7, 4), 3);
    EXPECT_EQ(checkedRemainder(-7, 4), -3);
    EXPECT_EQ(checkedRemainder(7, -4), 3);
    EXPECT_EQ(checkedRemainder(smallest, -1), 0);
}

TEST(CheckedArithmeticDeathTest, StopsTheProcessAtARemainderByZero)
{
    EXPECT_DEATH(checkedRemainder(3, 0), "Fatal error: Division by zero in remainder operation");
}

TEST(CheckedArithmetic, TruncatesTowardZero)
{
    EXPECT_EQ(checkedInteger(59.9), 59);
    EXPECT_EQ(checkedInteger(-59.9), -59);
    EXPECT_EQ(checkedInteger(-9223372036854775808.0), smallest);
    EXPECT_EQ(checkedInteger(9223372036854774784.0), 9223372036854774784);
}

TEST(CheckedArithmeticDeathTest, StopsTheProcessWhereANumberIsNoInteger)
{
    const auto infinite = "Double value cannot be converted to Int because it is either infinite or NaN";
    EXPECT_DEATH(checkedInteger(std::nan("")), infinite);
    EXPECT_DEATH(checkedInteger(HUGE_VAL), infinite);
    EXPECT_DEATH(checkedInteger(-HUGE_VAL), infinite);
}

TEST(CheckedArithmeticDeathTest, StopsTheProcessWhereANumberIsOutsideTheRange)
{
    EXPECT_DEATH(checkedInteger(9223372036854775808.0), "would be greater than Int.max");
    EXPECT_DEATH(checkedInteger(-9223372036854777856.0), "would be less than Int.min");
}

} // namespace

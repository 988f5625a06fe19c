#include "Foundation/CheckedArithmetic.h"

#include "Foundation/FatalError.h"

#include <cmath>

namespace foundation {

namespace {

// 2^63 is the smallest double above the signed 64-bit range; its negative is the lowest one in it.
constexpr double twoToThe63 = 9223372036854775808.0;

template <class Integer> Integer sumOf(Integer left, Integer right)
{
    Integer sum = 0;
    if (__builtin_add_overflow(left, right, &sum)) {
        fatalError("arithmetic overflow");
    }
    return sum;
}

} // namespace

std::int64_t checkedSum(std::int64_t left, std::int64_t right)
{
    return sumOf(left, right);
}

std::uint64_t checkedUnsignedSum(std::uint64_t left, std::uint64_t right)
{
    return sumOf(left, right);
}

std::int64_t checkedRemainder(std::int64_t dividend, std::int64_t divisor)
{
    if (divisor == 0) {
        fatalError("Division by zero in remainder operation");
    }
    return divisor == -1 ? 0 : dividend % divisor; // the quotient of the smallest number would not fit
}

std::int64_t checkedInteger(double value)
{
    if (!std::isfinite(value)) {
        fatalError("Double value cannot be converted to Int because it is either infinite or NaN");
    }
    if (value >= twoToThe63) {
        fatalError(
            "Double value cannot be converted to Int because the result would be greater than Int.max");
    }
    if (value < -twoToThe63) {
        fatalError("Double value cannot be converted to Int because the result would be less than Int.min");
    }
    return static_cast<std::int64_t>(value);
}

} // namespace foundation

// Integer arithmetic that stops the process where the result does not fit. Any thread.
#pragma once

#include <cstdint>

namespace foundation {

// left + right; a sum outside the signed 64-bit range is a fatal error.
std::int64_t checkedSum(std::int64_t left, std::int64_t right);

// left + right; a sum beyond 64 bits is a fatal error.
std::uint64_t checkedUnsignedSum(std::uint64_t left, std::uint64_t right);

// dividend modulo divisor, with the sign of the dividend; a divisor of 0 is a fatal error.
std::int64_t checkedRemainder(std::int64_t dividend, std::int64_t divisor);

// The value truncated toward zero; NaN, an infinity, or a result outside the signed 64-bit range is a
// fatal error.
std::int64_t checkedInteger(double value);

} // namespace foundation

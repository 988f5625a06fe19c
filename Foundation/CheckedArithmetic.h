// Integer arithmetic that stops the process where the result does not fit. Any thread.
#pragma once

#include <cstdint>

namespace foundation {

// left + right; a sum outside the signed 64-bit range is a fatal error.
std::int64_t checkedSum(std::int64_t left, std::int64_t right);

// The value truncated toward zero; NaN, an infinity, or a result outside the signed 64-bit range is a
// fatal error.
std::int64_t checkedInteger(double value);

} // namespace foundation

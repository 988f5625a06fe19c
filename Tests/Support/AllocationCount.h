// How often memory was allocated.
#pragma once

#include <cstdint>

namespace testsupport {

// Calls of operator new in the calling thread so far. A program that asks has its operator new replaced by
// one that counts.
[[nodiscard]] std::uint64_t allocationCount();

} // namespace testsupport

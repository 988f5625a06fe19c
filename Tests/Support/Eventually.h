// Waiting for a condition with a deadline, in place of a fixed sleep.
#pragma once

#include <chrono>
#include <functional>

namespace testsupport {

// Asks again and again, with a short pause in between, until the predicate says true or the timeout has
// passed; says whether it came true. Handles the calling thread's Qt events meanwhile, where an application
// object exists.
[[nodiscard]] bool eventually(const std::function<bool()> &predicate,
                              std::chrono::milliseconds timeout = std::chrono::seconds(10));

// Lets the whole duration pass, Qt events handled; only to show that nothing happens in it.
void letPass(std::chrono::milliseconds duration);

} // namespace testsupport

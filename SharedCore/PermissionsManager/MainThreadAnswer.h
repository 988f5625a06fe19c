// The way of an answer to the main thread.
#pragma once

#include <functional>

namespace sharedcore {

// A function that may be called from any thread, any number of times, or never. The callback is called on the
// main thread from its event loop, never from inside such a call, and exactly once: with the first answer, or
// with false once the last copy of the function is gone without one. Only with the application itself it goes
// uncalled. REQUIRES: an application object lives.
[[nodiscard]] std::function<void(bool)> mainThreadAnswer(std::function<void(bool)> callback);

} // namespace sharedcore

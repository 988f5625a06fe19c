// GLib's asynchronous calls, waited for until a deadline.
#pragma once

#include "Platform/Linux/Secrets/GlibPointer.h"

#include <chrono>
#include <functional>

namespace platform {

// One call after the other, on a main context of their own: neither the program's main loop nor another
// thread's context runs meanwhile. One thread.
class TimedCalls
{
public:
    using Start = std::function<void(GCancellable *, GAsyncReadyCallback, gpointer)>;

    // All calls together may take so long, and 200 ms more to take back what was begun.
    explicit TimedCalls(std::chrono::milliseconds patience);
    TimedCalls(const TimedCalls &) = delete;
    TimedCalls &operator=(const TimedCalls &) = delete;
    ~TimedCalls();

    // Somebody has to be asked: from now on the calls may take so long.
    void extend(std::chrono::milliseconds patience);

    // Starts a call, which has to hand on all three arguments, and gives its result; nothing where none came
    // in time. A call that does not even let itself be cancelled is left to itself.
    [[nodiscard]] GlibPointer<GAsyncResult> run(const Start &start);

    [[nodiscard]] bool isOver() const { return std::chrono::steady_clock::now() >= deadline_; }

private:
    [[nodiscard]] GlibPointer<GSource> wakeUpAt(std::chrono::steady_clock::time_point time) const;

    GlibPointer<GMainContext> context_;
    GlibPointer<GCancellable> cancellable_;
    std::chrono::steady_clock::time_point deadline_;
};

} // namespace platform

// When a program's window shows its first picture, as seen by another client of the X server.
#pragma once

#include "Tests/Support/XClient.h"

#include <chrono>
#include <optional>

namespace benchmarks {

// Takes the window manager's place on a display, so that no window is mapped before it is watched. Lives on a
// connection of its own, which has to be served: windows appear only within awaitFirstFrame().
class FirstFrameWatch
{
public:
    using Clock = std::chrono::steady_clock;

    // REQUIRES: no window manager runs there. Throws NotMeasured where the server reports no damage.
    explicit FirstFrameWatch(const QString &display);

    // Maps the next window that a program wants mapped, and gives the time when the first pixels of its
    // content reached the server; nothing where that takes longer than the timeout.
    [[nodiscard]] std::optional<Clock::time_point> awaitFirstFrame(std::chrono::milliseconds timeout);

private:
    void handle(const xcb_generic_event_t &event);
    void map(const xcb_map_request_event_t &request);
    void configure(const xcb_configure_request_event_t &request);
    void waitForServer(Clock::time_point deadline) const;

    testsupport::XClient client_;
    std::uint8_t damageEvent_ = 0;
    std::uint32_t damage_ = 0;
    std::optional<Clock::time_point> firstFrame_;
};

} // namespace benchmarks

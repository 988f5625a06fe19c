// One action of the program as the rest of the desktop sees it.
#pragma once

#include "Tests/EndToEnd/Desktop.h"

namespace endtoend {

struct SeenAction
{
    // Everything that came from input devices, the second half of the action included.
    std::vector<testsupport::XRawEvent> events;
    QPoint pointerBefore;
    QPoint pointerAfter;
    // The idle clock before the first event, and at it: as the screen saver extension has it, and as the
    // xprintidle program prints it, less the time from the event to the program's end.
    std::chrono::milliseconds idleBefore{};
    std::chrono::milliseconds idleAtAction{};
    std::chrono::milliseconds printedIdleAtAction{};

    [[nodiscard]] std::vector<testsupport::XRawEvent::Kind> kinds() const;
    [[nodiscard]] std::vector<std::uint32_t> details() const;
    // Milliseconds of the server's clock from the first event to the last.
    [[nodiscard]] std::uint32_t duration() const;
};

// Waits for the next action, and until nothing more has come for half a second; nothing where no action comes
// in time. The test fails where the idle clock is not over 5 s before the action and under 100 ms at it.
[[nodiscard]] std::optional<SeenAction> awaitAction(Desktop &desktop);

} // namespace endtoend

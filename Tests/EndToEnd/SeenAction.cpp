#include "Tests/EndToEnd/SeenAction.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XIdleClock.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace testsupport;
using namespace std::chrono_literals;

namespace endtoend {

namespace {

constexpr auto quiet = 500ms;

// Reads both clocks right after the first event was seen.
void readIdleClocks(Desktop &desktop, SeenAction &action)
{
    action.idleAtAction = idleTime(desktop.x()).value_or(1h);
    const auto printed = printedIdleTime(desktop.runtime()).value_or(1h);
    const auto sinceAction = std::chrono::steady_clock::now() - desktop.observer().events().front().seenAt;
    action.printedIdleAtAction = printed - std::chrono::duration_cast<std::chrono::milliseconds>(sinceAction);
}

void awaitQuiet(XObserver &observer)
{
    auto count = observer.events().size();
    const auto isStill = [&] {
        letPass(quiet);
        return observer.events().size() == std::exchange(count, observer.events().size());
    };
    EXPECT_TRUE(eventually(isStill)) << "Input goes on and on";
}

} // namespace

std::vector<XRawEvent::Kind> SeenAction::kinds() const
{
    std::vector<XRawEvent::Kind> list;
    std::ranges::transform(events, std::back_inserter(list), &XRawEvent::kind);
    return list;
}

std::vector<std::uint32_t> SeenAction::details() const
{
    std::vector<std::uint32_t> list;
    std::ranges::transform(events, std::back_inserter(list), &XRawEvent::detail);
    return list;
}

std::uint32_t SeenAction::duration() const
{
    return events.back().serverTime - events.front().serverTime;
}

std::optional<SeenAction> awaitAction(Desktop &desktop)
{
    auto &observer = desktop.observer();
    observer.clear();
    SeenAction action;
    action.pointerBefore = observer.pointer();
    const auto isActing = [&] {
        const auto idle = idleTime(desktop.x()).value_or(0ms);
        if (!observer.events().empty()) {
            return true;
        }
        action.idleBefore = idle; // read before the look for events: surely from before the action
        return false;
    };
    if (!eventually(isActing, moreThanOneInterval)) {
        return std::nullopt;
    }
    readIdleClocks(desktop, action);
    awaitQuiet(observer);
    action.events = observer.events();
    action.pointerAfter = observer.pointer();
    EXPECT_GT(action.idleBefore, 5s);
    EXPECT_LT(action.idleAtAction, 100ms);
    EXPECT_LT(action.printedIdleAtAction, 100ms);
    return action;
}

} // namespace endtoend

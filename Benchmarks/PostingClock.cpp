#include "Benchmarks/PostingClock.h"

#include <utility>

namespace benchmarks {

namespace {

bool isScrollAway(const platform::InputEvent &event)
{
    const auto *scroll = std::get_if<platform::ScrollPixels>(&event);
    return scroll && scroll->dy > 0;
}

} // namespace

std::optional<platform::PointerLocation> PostingClock::pointerLocation()
{
    isStepNext_ = true;
    return poster_.pointerLocation();
}

bool PostingClock::post(const platform::InputEvent &event)
{
    const bool isStep = std::exchange(isStepNext_, false) || isScrollAway(event);
    if (!poster_.post(event)) {
        return false;
    }
    const auto now = Clock::now();
    if (isStep) {
        steps_.push_back(now);
    } else if (!steps_.empty()) {
        delays_.push_back(std::chrono::duration<double, std::milli>(now - steps_.front()).count());
        steps_.pop_front();
    }
    return true;
}

} // namespace benchmarks

// When an engine's steps and their returns left for the display server.
#pragma once

#include "Platform/InputPoster.h"

#include <chrono>
#include <deque>
#include <vector>

namespace benchmarks {

// Posts through another poster and keeps the time from each step to its return, both when they had been
// handed over; what could not be posted is left out. A step is what follows a question for the pointer's
// location, or a scroll away from the start; the returns come in the order of their steps.
class PostingClock final : public platform::InputPoster
{
public:
    explicit PostingClock(platform::InputPoster &poster)
        : poster_(poster)
    {}

    std::optional<platform::PointerLocation> pointerLocation() override;
    bool post(const platform::InputEvent &event) override;
    bool isOpen() const override { return poster_.isOpen(); }

    // In milliseconds.
    [[nodiscard]] const std::vector<double> &delays() const { return delays_; }

private:
    using Clock = std::chrono::steady_clock;

    platform::InputPoster &poster_;
    bool isStepNext_ = false;
    std::deque<Clock::time_point> steps_;
    std::vector<double> delays_;
};

} // namespace benchmarks

// Posts through the first way that works, and looks again when that way is lost.
#pragma once

#include "Platform/InputPoster.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform {

// Asks its candidates in their order at the first use, and keeps the first that opens. When that one is lost,
// or none opened, they are asked again at the next use, once: uses are at least an interval apart, so a
// system that is away for a while costs next to nothing and is found again. Main thread.
class FallbackInputPoster final : public InputPoster
{
public:
    // Opens a backend, or gives nothing where it cannot work, and says why.
    using Candidate = std::function<std::unique_ptr<InputPoster>(Obstacle &)>;

    explicit FallbackInputPoster(std::vector<Candidate> candidates);

    void prepare() override;
    std::optional<PointerLocation> pointerLocation() override;
    bool post(const InputEvent &event) override;
    bool isOpen() const override { return true; }
    bool isReady() const override { return backend_ && backend_->isReady(); }
    bool isWaiting() const override { return backend_ && backend_->isWaiting(); }
    Obstacle obstacle() const override { return backend_ ? backend_->obstacle() : obstacle_; }

private:
    InputPoster *openBackend();

    std::vector<Candidate> candidates_;
    std::unique_ptr<InputPoster> backend_;
    Obstacle obstacle_; // of the last candidate that was asked and did not open
};

} // namespace platform

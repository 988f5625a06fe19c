#include "Platform/FallbackInputPoster.h"

#include <utility>

namespace platform {

FallbackInputPoster::FallbackInputPoster(std::vector<Candidate> candidates)
    : candidates_(std::move(candidates))
{}

InputPoster *FallbackInputPoster::openBackend()
{
    if (backend_ && backend_->isOpen()) {
        return backend_.get();
    }
    backend_.reset();
    for (const auto &candidate : candidates_) {
        backend_ = candidate(obstacle_);
        if (backend_) {
            break;
        }
    }
    return backend_.get();
}

void FallbackInputPoster::prepare()
{
    if (auto *backend = openBackend()) {
        backend->prepare();
    }
}

std::optional<PointerLocation> FallbackInputPoster::pointerLocation()
{
    auto *backend = openBackend();
    return backend ? backend->pointerLocation() : std::nullopt;
}

bool FallbackInputPoster::post(const InputEvent &event)
{
    auto *backend = openBackend();
    return backend && backend->post(event);
}

} // namespace platform

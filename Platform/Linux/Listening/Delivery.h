// The way from a backend's events to the handler of a tap, who may do away with the tap meanwhile.
#pragma once

#include "Platform/InputListener.h"

#include <memory>
#include <utility>

namespace platform {

// A member of the tap. One thread.
class Delivery
{
public:
    Delivery(EventMask mask, InputListener::Handler handler)
        : mask_(mask)
        , shared_(std::make_shared<Shared>(Shared{std::move(handler)}))
    {}
    Delivery(const Delivery &) = delete;
    Delivery &operator=(const Delivery &) = delete;
    ~Delivery() { shared_->isTapAlive = false; }

    void setEnabled(bool isEnabled) { isEnabled_ = isEnabled; }
    [[nodiscard]] bool isEnabled() const { return isEnabled_; }
    [[nodiscard]] bool wantsAny(EventMask mask) const { return (mask_ & mask) != 0; }

    // Hands over an event that is wanted. False: the tap is gone, and the caller returns without touching it.
    [[nodiscard]] bool deliver(const ObservedEvent &event)
    {
        if (!isEnabled_ || !wantsAny(maskOf(event.kind))) {
            return true;
        }
        const auto shared = shared_;
        shared->handler(event);
        return shared->isTapAlive;
    }

private:
    struct Shared
    {
        InputListener::Handler handler;
        bool isTapAlive = true;
    };

    EventMask mask_;
    std::shared_ptr<Shared> shared_;
    bool isEnabled_ = false;
};

} // namespace platform

// An input listener whose events the test makes up.
#pragma once

#include "Platform/InputListener.h"

#include <algorithm>
#include <vector>

namespace fakes {

// One thread.
class FakeInputListener final : public platform::InputListener
{
public:
    [[nodiscard]] bool isTrusted() override
    {
        ++trustQuestionCount;
        return isTrustGiven;
    }

    [[nodiscard]] std::unique_ptr<platform::InputTap> makeTap(platform::EventMask mask,
                                                              Handler handler) override
    {
        masks.push_back(mask);
        return refusesTaps ? nullptr : std::make_unique<Tap>(*this, mask, std::move(handler));
    }

    // Delivers an event to the taps that are enabled and want it, in the order in which they were made.
    void send(const platform::ObservedEvent &event)
    {
        const auto present = taps_;
        for (auto *tap : present) {
            if (std::ranges::find(taps_, tap) != taps_.end()) {
                tap->send(event);
            }
        }
    }

    // The system ends all taps.
    void endTaps()
    {
        for (auto *tap : taps_) {
            tap->isEnded = true;
        }
    }

    [[nodiscard]] std::size_t tapCount() const { return taps_.size(); }

    bool isTrustGiven = true;
    bool refusesTaps = false;
    int trustQuestionCount = 0;
    std::vector<platform::EventMask> masks; // of the taps that were asked for

private:
    class Tap final : public platform::InputTap
    {
    public:
        Tap(FakeInputListener &listener, platform::EventMask mask, Handler handler)
            : listener_(listener)
            , mask_(mask)
            , handler_(std::move(handler))
        {
            listener_.taps_.push_back(this);
        }
        ~Tap() override { std::erase(listener_.taps_, this); }

        void setEnabled(bool isEnabled) override { isEnabled_ = isEnabled; }

        void send(const platform::ObservedEvent &event) const
        {
            if (isEnabled_ && !isEnded && (mask_ & platform::maskOf(event.kind)) != 0) {
                const auto handler = handler_; // it may destroy this
                handler(event);
            }
        }

        bool isEnded = false;

    private:
        FakeInputListener &listener_;
        platform::EventMask mask_;
        Handler handler_;
        bool isEnabled_ = false;
    };

    std::vector<Tap *> taps_;
};

} // namespace fakes

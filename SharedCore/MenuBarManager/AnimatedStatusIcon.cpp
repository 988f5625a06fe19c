#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"

#include "Foundation/CheckedArithmetic.h"
#include "Platform/MenuBarServices.h"

#include <utility>

namespace sharedcore {

using Frames = std::vector<platform::TemplateImage>;

struct AnimatedStatusIcon::Animation
{
    void tick(platform::StatusItem &statusItem, const Frames &frames)
    {
        if (auto *button = statusItem.button()) {
            const auto count = static_cast<std::int64_t>(frames.size());
            const auto index = foundation::checkedRemainder(frameIndex, count);
            button->setImage(frames[static_cast<std::size_t>(index)]);
        }
        frameIndex = foundation::checkedSum(frameIndex, 1);
    }

    std::shared_ptr<platform::RepeatingTimer> timer;
    std::int64_t frameIndex = 0;
};

AnimatedStatusIcon::AnimatedStatusIcon()
    : animation_(std::make_shared<Animation>())
{}

void AnimatedStatusIcon::startAnimation(std::shared_ptr<platform::StatusItem> statusItem, Frames frames,
                                        double bpm)
{
    stopAnimation();
    const double secondsPerBeat = 60.0 / bpm;
    const platform::Seconds interval(secondsPerBeat / static_cast<double>(frames.size()));
    animation_->timer = platform::MenuBarServices::current().scheduler().repeat(
        interval, [animation = animation_, item = std::move(statusItem), frames = std::move(frames)] {
            animation->tick(*item, frames);
        });
}

void AnimatedStatusIcon::updateBPM(std::shared_ptr<platform::StatusItem> statusItem, Frames frames,
                                   double bpm)
{
    startAnimation(std::move(statusItem), std::move(frames), bpm);
}

void AnimatedStatusIcon::stopAnimation()
{
    if (auto timer = std::exchange(animation_->timer, nullptr)) {
        timer->invalidate();
    }
    animation_->frameIndex = 0;
}

bool AnimatedStatusIcon::isAnimating() const
{
    return animation_->timer != nullptr;
}

std::int64_t AnimatedStatusIcon::frameIndex() const
{
    return animation_->frameIndex;
}

} // namespace sharedcore

// An icon in the menu bar that moves.
#pragma once

#include "Platform/StatusItem.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace sharedcore {

// Plays frames in the button of a status item, one whole pass a beat. Copies stand for the same icon. While
// it is animated it lives on, with the status item, without anybody holding it. Main thread.
class AnimatedStatusIcon
{
public:
    AnimatedStatusIcon();
    AnimatedStatusIcon(const AnimatedStatusIcon &) =
        default; // and no other way to move it: it has an icon always
    AnimatedStatusIcon &operator=(const AnimatedStatusIcon &) = default;
    ~AnimatedStatusIcon() = default;

    // Shows the next frame every 60 / bpm / frames.size() seconds, the first one after the first such
    // interval; what was played before is stopped. `bpm` is above 0: at 0 no frame is ever due, at one below
    // or one that is not a number a frame is due every 0.0001 s. Nor is one due without frames, unless `bpm`
    // is below 0 or not a number: then the first tick stops the process.
    void startAnimation(std::shared_ptr<platform::StatusItem> statusItem,
                        std::vector<platform::TemplateImage> frames, double bpm = 60.0);

    // Starts again with the first frame at the new rate.
    void updateBPM(std::shared_ptr<platform::StatusItem> statusItem,
                   std::vector<platform::TemplateImage> frames, double bpm);

    // The button keeps the frame it shows. Nothing happens where nothing is played.
    void stopAnimation();

    [[nodiscard]] bool isAnimating() const;
    // The ticks since the animation started, with or without a button; never wrapped, 0 while nothing is
    // played.
    [[nodiscard]] std::int64_t frameIndex() const;

private:
    struct Animation;

    std::shared_ptr<Animation> animation_;
};

} // namespace sharedcore

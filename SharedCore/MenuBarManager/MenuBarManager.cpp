#include "SharedCore/MenuBarManager/MenuBarManager.h"

#include "Foundation/FatalError.h"
#include "Platform/MenuBarServices.h"

#include <cmath>
#include <numbers>

namespace sharedcore {

namespace {

constexpr double swelling = 0.2; // of the image's side, each way

platform::ImageSquare heartOf(int index, int count, double size)
{
    const double phase = static_cast<double>(index) / count;
    const double pulse = std::sin(phase * std::numbers::pi * 2);
    const double side = size * (1 + pulse * swelling);
    const double offset = (size - side) / 2;
    return {offset, offset, side};
}

} // namespace

void configureAsMenuBarOnlyApp()
{
    if (!platform::MenuBarServices::current().becomeAccessory()) {
        foundation::fatalError("Unexpectedly found nil while implicitly unwrapping an Optional value");
    }
}

std::vector<platform::TemplateImage> generateHeartFrames(int count, double size)
{
    if (count < 0) {
        foundation::fatalError("Range requires lowerBound <= upperBound");
    }
    std::vector<platform::TemplateImage> frames;
    frames.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        frames.push_back(
            platform::MenuBarServices::current().drawSymbol("heart.fill", size, heartOf(i, count, size)));
    }
    return frames;
}

} // namespace sharedcore

// The three actions of the engine: what each posts, and what it says of it.

#include "App/StirraEngine.h"

namespace stirra {

namespace {

constexpr platform::Seconds jiggleReturnDelay{0.05};
constexpr platform::Seconds scrollReturnDelay{0.1};
constexpr double jiggleDistance = 1.0;

constexpr std::uint16_t leftCommandKey = 55;
constexpr std::uint16_t rightCommandKey = 54;
constexpr std::uint64_t secondaryFunctionFlag = 0x800000;

// The platform lives as long as its scheduler, so what is queued here may outlive the engine.
void postLater(platform::Platform &platform, platform::Seconds delay, const platform::InputEvent &event)
{
    platform.scheduler().after(delay, [&platform, event] { platform.inputPoster().post(event); });
}

} // namespace

void StirraEngine::jiggleMouse()
{
    const double offset = isEvenTurn() ? jiggleDistance : -jiggleDistance;
    if (const auto start = platform_.inputPoster().pointerLocation()) {
        platform_.inputPoster().post(platform::MouseMoved{{start->x + offset, start->y + offset}});
        postLater(platform_, jiggleReturnDelay, platform::MouseMoved{*start});
    }
    setLastAction(QStringLiteral("Mouse jiggle (+%1,+%1)").arg(static_cast<int>(offset)));
    addLog(QStringLiteral("Mouse jiggle"));
}

void StirraEngine::pressKey()
{
    const auto key = isEvenTurn() ? leftCommandKey : rightCommandKey;
    // "Option" is the name that the second key goes by here, whatever is printed on it.
    const auto name = isEvenTurn() ? QStringLiteral("Command") : QStringLiteral("Option");
    platform_.inputPoster().post(platform::KeyEvent{key, true, secondaryFunctionFlag});
    platform_.inputPoster().post(platform::KeyEvent{key, false, secondaryFunctionFlag});
    setLastAction(QStringLiteral("Key press: ") + name);
    addLog(QStringLiteral("Key: ") + name);
}

void StirraEngine::scrollPulse()
{
    platform_.inputPoster().post(platform::ScrollPixels{1});
    postLater(platform_, scrollReturnDelay, platform::ScrollPixels{-1});
    setLastAction(QStringLiteral("Scroll pulse"));
    addLog(QStringLiteral("Scroll"));
}

} // namespace stirra

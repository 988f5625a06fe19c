// An engine on a platform in the test's hands.
#pragma once

#include "App/StirraEngine.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/QtPrinting.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

// GoogleTest prints texts that it can read.
namespace stirra {

class EngineTest : public testing::Test
{
protected:
    using Mode = StirraEngine::Mode;

    // Moves the time on by `count` intervals of the engine.
    void advanceIntervals(int count) { advanceSeconds(engine.intervalSeconds() * count); }
    void advanceSeconds(double seconds) { platform.scheduler().advance(platform::Seconds(seconds)); }

    [[nodiscard]] const std::vector<platform::InputEvent> &posted() { return platform.inputPoster().posted; }

    // The messages of the log, the newest first.
    [[nodiscard]] std::vector<std::string> messages() const
    {
        std::vector<std::string> list;
        std::ranges::transform(engine.actionLog(), std::back_inserter(list),
                               [](const ActionLogEntry &entry) { return entry.message.toStdString(); });
        return list;
    }

    fakes::FakePlatform platform;
    StirraEngine engine;
};

} // namespace stirra

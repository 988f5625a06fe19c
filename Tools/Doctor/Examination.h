// Looks at what the desktop offers, and tries it.
#pragma once

#include "App/StirraEngine.h"
#include "Tools/Doctor/Report.h"

#include <chrono>
#include <functional>

namespace doctor {

// Lets the event loop run until the condition holds, and says whether it came to hold in that time.
using Wait = std::function<bool(const std::function<bool()> &condition, std::chrono::milliseconds longest)>;

// Waits for real. Main thread of a Qt application.
[[nodiscard]] bool waitInEventLoop(const std::function<bool()> &condition, std::chrono::milliseconds longest);

// Opens each way to post, then performs each action once through the one that Stirra would use, with Stirra's
// own engine on the current platform. Takes some seconds where nobody touches the computer; longer where the
// desktop asks its user for leave. Main thread of a Qt application.
class Examination
{
public:
    // REQUIRES: `diagnosis` outlives it.
    Examination(platform::Diagnosis &diagnosis, Wait wait);

    [[nodiscard]] Report run() const;

private:
    [[nodiscard]] Backend examine(const platform::NamedInputPoster &way) const;
    [[nodiscard]] bool isReady(platform::InputPoster &poster) const;
    void performAll(Report &report) const;
    [[nodiscard]] Result perform(stirra::StirraEngine::Mode mode, platform::IdleClock &clock) const;
    Result performUnseen(stirra::StirraEngine::Mode mode) const;
    bool performOnce(stirra::StirraEngine::Mode mode) const;

    platform::Diagnosis &diagnosis_;
    Wait wait_;
};

} // namespace doctor

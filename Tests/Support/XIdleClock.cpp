#include "Tests/Support/XIdleClock.h"

#include "Tests/Support/ChildProcess.h"

#include <xcb/screensaver.h>

namespace testsupport {

std::optional<std::chrono::milliseconds> idleTime(const XClient &x)
{
    const auto reply =
        xAnswer(xcb_screensaver_query_info_reply, x.get(), xcb_screensaver_query_info(x.get(), x.root()));
    return reply ? std::optional(std::chrono::milliseconds(reply->ms_since_user_input)) : std::nullopt;
}

std::optional<std::chrono::milliseconds> printedIdleTime(const PrivateRuntime &runtime)
{
    ChildProcess program(QStringLiteral("xprintidle"), {}, runtime.environment());
    if (program.waitForExit() != 0) {
        return std::nullopt;
    }
    bool isNumber = false;
    const auto milliseconds = program.standardOutput().trimmed().toLongLong(&isNumber);
    return isNumber ? std::optional(std::chrono::milliseconds(milliseconds)) : std::nullopt;
}

} // namespace testsupport

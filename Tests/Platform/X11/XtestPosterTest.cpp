#include "Tests/Platform/X11/XtestPosterTest.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XIdleClock.h"

namespace testsupport {

ScopedDisplay::ScopedDisplay(const QString &display)
    : before_(qgetenv("DISPLAY"))
{
    qputenv("DISPLAY", display.toLocal8Bit());
}

ScopedDisplay::~ScopedDisplay()
{
    qputenv("DISPLAY", before_);
}

std::unique_ptr<platform::InputPoster> posterOn(const QString &display)
{
    const ScopedDisplay scope(display);
    platform::Obstacle why;
    return platform::XtestInputPoster::create(why);
}

bool becomesIdle(const XClient &x)
{
    return eventually([&x] { return idleTime(x) >= idleEnough; });
}

bool becomesActiveAfter(const XClient &x, std::chrono::steady_clock::time_point start)
{
    return eventually([&x, start] {
        const auto idle = idleTime(x);
        const auto passed = std::chrono::steady_clock::now() - start;
        return idle && *idle < passed + idleEnough / 2;
    });
}

} // namespace testsupport

#include "Tests/Support/Wayland/SwayIdle.h"

namespace testsupport {

SwayIdle::SwayIdle(const PrivateRuntime &runtime, std::chrono::seconds timeout)
    : process_(QStringLiteral("swayidle"),
               {QStringLiteral("-w"), QStringLiteral("-C"), QStringLiteral("/dev/null"),
                QStringLiteral("timeout"), QString::number(timeout.count()), QStringLiteral("echo idle"),
                QStringLiteral("resume"), QStringLiteral("echo resume")},
               runtime.environment())
{}

qsizetype SwayIdle::idleCount() const
{
    return process_.standardOutput().count("idle\n");
}

qsizetype SwayIdle::resumeCount() const
{
    return process_.standardOutput().count("resume\n");
}

} // namespace testsupport

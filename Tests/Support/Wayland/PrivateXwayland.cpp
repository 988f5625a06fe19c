#include "Tests/Support/Wayland/PrivateXwayland.h"

#include "Tests/Support/Eventually.h"

namespace testsupport {

PrivateXwayland::PrivateXwayland(PrivateRuntime &runtime)
    : process_(QStringLiteral("Xwayland"),
               {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-shm"),
                QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")},
               runtime.environment())
{
    static_cast<void>(
        eventually([this] { return process_.standardOutput().endsWith('\n') || !process_.isRunning(); },
                   std::chrono::seconds(30)));
    const auto number = process_.standardOutput().trimmed();
    if (!number.isEmpty()) {
        display_ = QLatin1Char(':') + QString::fromLatin1(number);
        runtime.environment().insert(QStringLiteral("DISPLAY"), display_);
    }
}

} // namespace testsupport

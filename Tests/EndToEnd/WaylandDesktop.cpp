#include "Tests/EndToEnd/WaylandDesktop.h"

#include "Tests/Support/Eventually.h"

using namespace testsupport;

namespace endtoend {

namespace {

QProcessEnvironment withAccessibility(QProcessEnvironment environment)
{
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    return environment;
}

} // namespace

WaylandDesktop::WaylandDesktop()
    : bus_(runtime_)
    , accessibilityBus_(runtime_, bus_)
{
    if (accessibilityBus_.isOpen()) {
        accessibility_ = accessibilityBus_.connect();
    }
}

WaylandStirra::WaylandStirra(const WaylandDesktop &desktop)
    : process_(QStringLiteral(STIRRA_PROGRAM), {}, withAccessibility(desktop.environment()))
    , tree_(desktop.accessibility(), process_.pid())
{}

bool WaylandStirra::comesToShow(const QString &text, std::chrono::milliseconds timeout)
{
    return eventually([&] { return tree_.find(text).has_value(); }, timeout);
}

bool WaylandStirra::startIn(const QString &mode)
{
    return isUp() && tree_.press(mode) && tree_.press(QStringLiteral("15s")) &&
           tree_.press(QStringLiteral("Start")) && comesToShow(QStringLiteral("Starting..."));
}

} // namespace endtoend

#include "Tests/EndToEnd/WaylandDesktop.h"

#include "Tests/Support/Eventually.h"

using namespace testsupport;

namespace endtoend {

namespace {

QProcessEnvironment withAccessibility(QProcessEnvironment environment, const QProcessEnvironment &further)
{
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    environment.insert(further);
    return environment;
}

} // namespace

WaylandDesktop::WaylandDesktop()
    : bus_(runtime_)
    , accessibilityBus_(runtime_, bus_)
{
    // At its end the toolkit leaves protocol objects behind, and a leak checker cannot tell whose they are.
    // Those of the program's own are checked where it posts without the toolkit.
    runtime_.environment().insert(QStringLiteral("LSAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    if (accessibilityBus_.isOpen()) {
        accessibility_ = accessibilityBus_.connect();
    }
}

WaylandStirra::WaylandStirra(const WaylandDesktop &desktop, const QProcessEnvironment &further)
    : process_(QStringLiteral(STIRRA_PROGRAM), {}, withAccessibility(desktop.environment(), further))
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

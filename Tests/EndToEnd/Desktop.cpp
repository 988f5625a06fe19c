#include "Tests/EndToEnd/Desktop.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <QCoreApplication>

using namespace testsupport;

namespace endtoend {

namespace {

// QtDBus delivers calls and signals through one.
void makeApplication()
{
    static int argumentCount = 1;
    static char name[] = "test";
    static char *arguments[] = {name, nullptr};
    static const QCoreApplication application(argumentCount, arguments);
}

PrivateRuntime makeRuntime()
{
    makeApplication();
    return {};
}

QProcessEnvironment withAccessibility(QProcessEnvironment environment, const QProcessEnvironment &further)
{
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    environment.insert(further);
    return environment;
}

} // namespace

Desktop::Desktop(Bus bus, const QStringList &serverArguments)
    : kind_(bus)
    , runtime_(makeRuntime())
    , server_(runtime_, serverArguments)
    , observer_(server_.display())
    , manager_(runtime_)
    , bus_(runtime_)
    , accessibilityBus_(runtime_, bus_)
{
    if (accessibilityBus_.isOpen()) {
        accessibility_ = accessibilityBus_.connect();
    }
    if (kind_ == Bus::none) {
        environment().insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                             QStringLiteral("unix:path=") + runtime_.path(QStringLiteral("no-bus")));
    }
}

bool Desktop::isOpen() const
{
    return server_.isOpen() && observer_.isOpen() && manager_.isOpen() && bus_.isOpen() &&
           accessibilityBus_.isOpen();
}

std::vector<xcb_window_t> Desktop::stirraWindows() const
{
    return windowsTitled(x(), QStringLiteral("Stirra"));
}

Stirra::Stirra(Desktop &desktop, const QProcessEnvironment &further)
    : desktop_(desktop)
    , process_(stirraPath(), {}, withAccessibility(desktop.environment(), further))
    , tree_(desktop.accessibility(), process_.pid())
{}

bool Stirra::isUp()
{
    return eventually([this] {
        const auto windows = desktop_.stirraWindows();
        return windows.size() == 1 && isViewable(desktop_.x(), windows.front()) &&
               (!desktop_.hasSessionBus() || shows(QStringLiteral("Stirra")));
    });
}

xcb_window_t Stirra::window() const
{
    const auto windows = desktop_.stirraWindows();
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

bool Stirra::comesToShow(const QString &text, std::chrono::milliseconds timeout)
{
    return eventually([&] { return shows(text); }, timeout);
}

bool Stirra::startIn(const QString &mode)
{
    return isUp() && tree_.press(mode) && tree_.press(QStringLiteral("15s")) &&
           tree_.press(QStringLiteral("Start")) && comesToShow(QStringLiteral("Starting..."));
}

void PrintTo(Desktop::Bus bus, std::ostream *stream)
{
    *stream << (bus == Desktop::Bus::session ? "WithASessionBus" : "WithoutASessionBus");
}

QString stirraPath()
{
    return QStringLiteral(STIRRA_PROGRAM);
}

} // namespace endtoend

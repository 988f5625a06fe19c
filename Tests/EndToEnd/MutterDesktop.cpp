#include "Tests/EndToEnd/MutterDesktop.h"

#include "Tests/Support/Eventually.h"

using namespace testsupport;
using namespace std::chrono_literals;

namespace endtoend {

namespace {

constexpr auto idleEnough = 5s;
constexpr auto atOnce = 200ms;

QProcessEnvironment onMutter(QProcessEnvironment environment)
{
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    environment.insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("portal"));
    return environment;
}

} // namespace

MutterDesktop::MutterDesktop()
    : bus_(runtime_)
    , accessibilityBus_(runtime_, bus_)
    , mutter_(runtime_, bus_)
{
    if (accessibilityBus_.isOpen()) {
        accessibility_ = accessibilityBus_.connect();
    }
}

bool MutterDesktop::isOpen() const
{
    return bus_.isOpen() && accessibilityBus_.isOpen() && mutter_.isOpen();
}

RemoteDesktopInputFunction MutterDesktop::inputFunction()
{
    return [this](const RemoteDesktopInput &call) {
        const auto idle = mutter_.idleTime().value_or(0ms);
        inputs_.push_back({call, idle, std::chrono::steady_clock::now()});
        mutter_.take(call);
    };
}

bool MutterDesktop::comesToHave(std::size_t count) const
{
    return eventually([&] { return inputs_.size() >= count; }, untilTheNextAction);
}

bool MutterDesktop::becomesActive()
{
    const auto count = inputs_.size();
    if (!comesToHave(count + 1) || inputs_[count].idleBefore <= idleEnough) {
        return false;
    }
    return eventually([&] {
        const auto sinceInput = std::chrono::steady_clock::now() - inputs_[count].takenAt;
        return mutter_.idleTime().value_or(1h) <= sinceInput + atOnce;
    });
}

MutterStirra::MutterStirra(MutterDesktop &desktop)
    : process_(QStringLiteral(STIRRA_PROGRAM), {}, onMutter(desktop.runtime().environment()))
    , tree_(desktop.accessibility(), process_.pid())
{}

bool MutterStirra::comesToShow(const QString &text, std::chrono::milliseconds timeout)
{
    return eventually([&] { return tree_.find(text).has_value(); }, timeout);
}

bool MutterStirra::startIn(const QString &mode)
{
    return comesToShow(QStringLiteral("Stirra"), std::chrono::seconds(30)) && tree_.press(mode) &&
           tree_.press(QStringLiteral("15s")) && tree_.press(QStringLiteral("Start")) &&
           comesToShow(QStringLiteral("Starting..."));
}

} // namespace endtoend

#include "Tests/EndToEnd/MutterDesktop.h"

#include "Tests/Support/Eventually.h"

using namespace testsupport;
using namespace std::chrono_literals;

namespace endtoend {

namespace {

constexpr auto idleEnough = 5s;
constexpr auto atOnce = 200ms;

} // namespace

MutterDesktop::MutterDesktop()
    : mutter_(desktop_.runtime(), desktop_.bus())
{
    runtime().environment().insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("portal"));
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
    return eventually([&] { return inputs_.size() >= count; }, moreThanAnInterval);
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

} // namespace endtoend

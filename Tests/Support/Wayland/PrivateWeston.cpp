#include "Tests/Support/Wayland/PrivateWeston.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/WaylandClient.h"

#include <QFile>

namespace testsupport {

namespace {

constexpr std::chrono::seconds startTime(30);

} // namespace

PrivateWeston::PrivateWeston(PrivateRuntime &runtime)
    : display_(runtime.runtimeFolder() + QStringLiteral("/weston"))
    , process_(QStringLiteral("weston"),
               {QStringLiteral("--no-config"), QStringLiteral("--backend=headless-backend.so"),
                QStringLiteral("--socket=weston"), QStringLiteral("--idle-time=0"),
                QStringLiteral("--width=1280"), QStringLiteral("--height=800")},
               runtime.environment())
{
    static_cast<void>(eventually(
        [this] {
            isOpen_ = QFile::exists(display_) && WaylandClient(display_).isOpen();
            return isOpen_ || !process_.isRunning();
        },
        startTime));
    runtime.environment().insert(QStringLiteral("WAYLAND_DISPLAY"), display_);
    runtime.environment().insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QStringLiteral("wlroots"));
}

} // namespace testsupport

#include "Platform/Diagnosis.h"
#include "Platform/Linux/Idle/IdleClocks.h"
#include "Platform/Linux/InputPosters.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/X11/XConnection.h"

namespace platform {

namespace {

class LinuxDiagnosis final : public Diagnosis
{
public:
    [[nodiscard]] SessionDescription session() override
    {
        const auto desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
        if (isWaylandSession()) {
            return {QStringLiteral("wayland"), desktop, qEnvironmentVariable("WAYLAND_DISPLAY")};
        }
        const bool isX11 = XConnection().isOpen();
        return {isX11 ? QStringLiteral("x11") : QStringLiteral("none"), desktop,
                qEnvironmentVariable("DISPLAY")};
    }

    [[nodiscard]] std::vector<NamedInputPoster> inputPosters() override { return namedInputPosters(); }

    [[nodiscard]] std::unique_ptr<IdleClock> openIdleClock() override { return platform::openIdleClock(); }
};

} // namespace

std::unique_ptr<Diagnosis> makeNativeDiagnosis()
{
    return std::make_unique<LinuxDiagnosis>();
}

} // namespace platform

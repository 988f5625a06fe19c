#include "Platform/Linux/Wayland/WaylandWindow.h"

#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <QWindow>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(200);
constexpr auto tokenVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

bool compositorDrawsWindowFrames()
{
    WaylandConnection connection;
    if (!connection.isOpen()) {
        return false;
    }
    const WaylandGlobals globals(connection);
    return connection.roundTrip(WaylandConnection::Clock::now() + patience) &&
           globals.offers("zxdg_decoration_manager_v1");
}

// The environment is where the toolkit looks for a token.
void activateWindow(QWindow &window, const QString &activationToken)
{
    if (!activationToken.isEmpty()) {
        qputenv(tokenVariable, activationToken.toUtf8());
    }
    window.requestActivate();
    qunsetenv(tokenVariable);
}

} // namespace platform

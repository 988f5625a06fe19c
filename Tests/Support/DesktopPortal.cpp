#include "Tests/Support/DesktopPortal.h"

#include "Tests/Support/Eventually.h"

#include <QDBusConnectionInterface>

namespace testsupport {

namespace {

constexpr auto programPath = "/usr/libexec/xdg-desktop-portal";

} // namespace

DesktopPortal::DesktopPortal(const PrivateRuntime &runtime, const PrivateBus &bus)
    : process_(QString::fromLatin1(programPath), {}, runtime.environment())
{
    const auto connection = bus.connect();
    const auto isRegistered = [&] {
        isOpen_ =
            connection.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.portal.Desktop"));
        return isOpen_ || !process_.isRunning();
    };
    static_cast<void>(eventually(isRegistered, std::chrono::seconds(30)));
    QDBusConnection::disconnectFromBus(connection.name());
}

} // namespace testsupport

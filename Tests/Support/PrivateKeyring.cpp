#include "Tests/Support/PrivateKeyring.h"

#include "Tests/Support/Eventually.h"

#include <QDBusConnectionInterface>

namespace testsupport {

namespace {

// The daemon reads the password from its standard input.
QStringList command(const PrivateRuntime &runtime, PrivateKeyring::State state)
{
    const bool isUnlocked = state == PrivateKeyring::State::unlocked;
    const auto line =
        QStringLiteral("printf '%1' | exec gnome-keyring-daemon %2 --foreground --components=secrets "
                       "--control-directory=%3")
            .arg(isUnlocked ? QStringLiteral("password") : QString(),
                 isUnlocked ? QStringLiteral("--unlock") : QString(),
                 runtime.path(QStringLiteral("keyring-control")));
    return {QStringLiteral("-c"), line};
}

} // namespace

PrivateKeyring::PrivateKeyring(const PrivateRuntime &runtime, const PrivateBus &bus, State state)
    : process_(QStringLiteral("sh"), command(runtime, state), runtime.environment())
{
    const auto connection = bus.connect();
    isOpen_ = eventually([&connection] {
        return connection.interface()->isServiceRegistered(QStringLiteral("org.freedesktop.secrets")).value();
    });
    QDBusConnection::disconnectFromBus(connection.name());
}

} // namespace testsupport

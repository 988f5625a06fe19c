#include "Tests/Support/PrivateKeyring.h"

#include "Tests/Support/Eventually.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFile>

namespace testsupport {

namespace {

// The daemon reads the password from its standard input.
QStringList command(const PrivateRuntime &runtime, PrivateKeyring::State state)
{
    const bool isUnlocked = state == PrivateKeyring::State::unlocked;
    const auto input = runtime.path(QStringLiteral("keyring-input"));
    QFile file(input);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(isUnlocked ? "password" : "");
    }
    return {QStringLiteral("-c"),
            QStringLiteral("exec gnome-keyring-daemon %1 --foreground --components=secrets "
                           "--control-directory=%2 <%3")
                .arg(isUnlocked ? QStringLiteral("--unlock") : QString(),
                     runtime.path(QStringLiteral("keyring-control")), input)};
}

// The daemon is on the bus before it has read the password.
bool isLoginKeyringUnlocked(const QDBusConnection &connection)
{
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.secrets"),
        QStringLiteral("/org/freedesktop/secrets/collection/login"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.freedesktop.Secret.Collection") << QStringLiteral("Locked");
    const auto answer = connection.call(question).arguments();
    const auto isLocked = answer.isEmpty() ? QVariant() : answer.front().value<QDBusVariant>().variant();
    return isLocked.isValid() && !isLocked.toBool();
}

} // namespace

PrivateKeyring::PrivateKeyring(const PrivateRuntime &runtime, const PrivateBus &bus, State state)
{
    const auto connection = bus.connect();
    const auto service = QStringLiteral("org.freedesktop.secrets");
    const auto isRegistered = [&] { return connection.interface()->isServiceRegistered(service).value(); };
    // One that has just ended may not have left the bus.
    if (eventually([&] { return !isRegistered(); })) {
        process_ = std::make_unique<ChildProcess>(QStringLiteral("sh"), command(runtime, state),
                                                  runtime.environment());
        isOpen_ = eventually(
            [&] { return isRegistered() && (state == State::locked || isLoginKeyringUnlocked(connection)); });
    }
    QDBusConnection::disconnectFromBus(connection.name());
}

} // namespace testsupport

#include "Tests/Platform/Secrets/SecretHome.h"

#include "Tests/Support/Eventually.h"

#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

namespace platform {

namespace {

void moveInto(const QProcessEnvironment &environment)
{
    clearenv();
    for (const auto &name : environment.keys()) {
        qputenv(name.toLocal8Bit().constData(), environment.value(name).toLocal8Bit());
    }
}

} // namespace

SecretHome::SecretHome(Kind kind)
{
    auto &environment = runtime_.environment();
    environment.remove(QStringLiteral("SECRET_BACKEND"));
    if (kind == Kind::file) {
        environment.insert(QStringLiteral("SECRET_BACKEND"), QStringLiteral("file"));
        environment.insert(QStringLiteral("SECRET_FILE_TEST_PATH"), runtime_.path(QStringLiteral("secrets")));
        environment.insert(QStringLiteral("SECRET_FILE_TEST_PASSWORD"), QStringLiteral("password"));
    }
    if (kind == Kind::keyring) {
        bus_ = std::make_unique<testsupport::PrivateBus>(runtime_);
        EXPECT_TRUE(bus_->isOpen());
        startKeyring(testsupport::PrivateKeyring::State::unlocked);
    }
    moveInto(environment);
}

void SecretHome::endKeyring()
{
    keyring_.reset();
    const auto connection = bus_->connect();
    EXPECT_TRUE(testsupport::eventually([&connection] {
        return !connection.interface()
                    ->isServiceRegistered(QStringLiteral("org.freedesktop.secrets"))
                    .value();
    }));
    QDBusConnection::disconnectFromBus(connection.name());
}

void SecretHome::startKeyring(testsupport::PrivateKeyring::State state)
{
    keyring_ = std::make_unique<testsupport::PrivateKeyring>(runtime_, *bus_, state);
    EXPECT_TRUE(keyring_->isOpen());
}

void SecretHome::endBus()
{
    bus_->process().end();
}

QByteArray SecretHome::run(const QStringList &command) const
{
    testsupport::ChildProcess program(command.front(), command.mid(1), runtime_.environment());
    EXPECT_EQ(program.waitForExit(), 0) << program.standardError().toStdString();
    return program.standardOutput();
}

} // namespace platform

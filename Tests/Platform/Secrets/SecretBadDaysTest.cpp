// A secret service that is absent, locked, silent or gone: every call fails, and soon.

#include "Platform/Linux/Secrets/SecretServiceStore.h"
#include "Tests/Platform/Secrets/SecretHome.h"
#include "Tests/Support/Eventually.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

namespace platform {

namespace {

using testsupport::PrivateKeyring;

// Takes calls, and never answers one.
class SilentObject final : public QDBusVirtualObject
{
public:
    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage & /*message*/, const QDBusConnection & /*connection*/) override
    {
        isCalled_ = true;
        return true;
    }
    [[nodiscard]] bool isCalled() const { return isCalled_; }

private:
    bool isCalled_ = false;
};

class SecretBadDaysTest : public testing::Test
{
protected:
    void expectFailure()
    {
        EXPECT_FALSE(store_.save("other", "me", "service"));
        EXPECT_FALSE(store_.read("me", "service"));
        EXPECT_FALSE(store_.remove("me", "service"));
    }

    SecretServiceStore store_;
};

class LostKeyringTest : public SecretBadDaysTest
{
protected:
    void SetUp() override { ASSERT_TRUE(store_.save("secret", "me", "service")); }

    void expectSecret(std::string_view expected = "secret")
    {
        const auto found = store_.read("me", "service");
        ASSERT_TRUE(found);
        EXPECT_EQ(found->view(), expected);
    }

    void restart(PrivateKeyring::State state)
    {
        home_.endKeyring();
        home_.startKeyring(state);
    }

    [[nodiscard]] pid_t daemon()
    {
        const auto connection = home_.bus().connect();
        return static_cast<pid_t>(
            connection.interface()->servicePid(QStringLiteral("org.freedesktop.secrets")).value());
    }

    SecretHome home_{SecretHome::Kind::keyring};
};

TEST_F(SecretBadDaysTest, FailsWithoutABus)
{
    const SecretHome home(SecretHome::Kind::none);
    expectFailure();
}

TEST_F(SecretBadDaysTest, StartsNoBusOfItsOwnWhereThereIsADisplay)
{
    const SecretHome home(SecretHome::Kind::none);
    qputenv("DISPLAY", ":99999");
    expectFailure();
}

TEST_F(SecretBadDaysTest, FailsWithABusThatIsNotThere)
{
    const SecretHome home(SecretHome::Kind::none);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    expectFailure();
}

TEST_F(SecretBadDaysTest, FailsWithoutAService)
{
    SecretHome home(SecretHome::Kind::keyring);
    home.endKeyring();
    expectFailure();
}

TEST_F(SecretBadDaysTest, OutlivesABusThatEndsWhileItWaits)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr); // whose events bring the calls
    SecretHome home(SecretHome::Kind::keyring);
    home.endKeyring();
    SilentObject silent;
    auto service = home.bus().connect();
    ASSERT_TRUE(service.registerVirtualObject(QStringLiteral("/"), &silent, QDBusConnection::SubPath));
    ASSERT_TRUE(service.registerService(QStringLiteral("org.freedesktop.secrets")));
    std::thread waiting([this] { EXPECT_FALSE(store_.read("me", "service")); });
    EXPECT_TRUE(testsupport::eventually([&silent] { return silent.isCalled(); }));
    home.endBus();
    waiting.join();
    expectFailure();
}

TEST_F(SecretBadDaysTest, FailsWhereThereIsNoKeyringAndNobodyCanBeAskedForOne)
{
    SecretHome home(SecretHome::Kind::keyring);
    home.endKeyring();
    home.run(
        {QStringLiteral("rm"), QStringLiteral("-r"), home.runtime().path(QStringLiteral("data/keyrings"))});
    home.startKeyring(PrivateKeyring::State::locked);
    expectFailure();
}

TEST_F(LostKeyringTest, FailsWhileItIsLockedAndKeepsTheSecret)
{
    restart(PrivateKeyring::State::locked);
    expectFailure();
    restart(PrivateKeyring::State::unlocked);
    expectSecret();
}

TEST_F(LostKeyringTest, FailsWhereTheUserCannotBeAskedThoughThereIsADisplay)
{
    qputenv("DISPLAY", ":99999");
    restart(PrivateKeyring::State::locked);
    expectFailure();
    restart(PrivateKeyring::State::unlocked);
    expectSecret();
}

TEST_F(LostKeyringTest, FailsWhereNobodyAnswersThePrompt)
{
    SilentObject silent;
    auto prompter = home_.bus().connect();
    ASSERT_TRUE(prompter.registerVirtualObject(QStringLiteral("/"), &silent, QDBusConnection::SubPath));
    ASSERT_TRUE(prompter.registerService(QStringLiteral("org.gnome.keyring.SystemPrompter")));
    restart(PrivateKeyring::State::locked);
    expectFailure();
    restart(PrivateKeyring::State::unlocked);
    expectSecret();
}

TEST_F(LostKeyringTest, IsFoundAgainAfterItWasStartedAnew)
{
    restart(PrivateKeyring::State::unlocked);
    expectSecret();
    EXPECT_TRUE(store_.save("another", "me", "service"));
    home_.endKeyring();
    expectFailure();
    home_.startKeyring(PrivateKeyring::State::unlocked);
    expectSecret("another");
    EXPECT_TRUE(store_.remove("me", "service"));
}

TEST_F(LostKeyringTest, FailsWhileItDoesNotAnswer)
{
    const auto process = daemon();
    ASSERT_GT(process, 0);
    kill(process, SIGSTOP);
    expectFailure();
    kill(process, SIGCONT);
    expectSecret();
}

TEST_F(LostKeyringTest, FailsWhileItDoesNotAnswerThoughThereIsADisplay)
{
    qputenv("DISPLAY", ":99999");
    const auto process = daemon();
    kill(process, SIGSTOP);
    expectFailure();
    kill(process, SIGCONT);
    expectSecret();
}

TEST_F(LostKeyringTest, OutlivesTheBus)
{
    home_.endBus();
    expectFailure();
    expectFailure();
}

} // namespace

} // namespace platform

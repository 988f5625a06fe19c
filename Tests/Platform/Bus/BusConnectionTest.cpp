#include "Platform/Linux/Bus/BusConnection.h"

#include "Platform/Linux/Bus/BusName.h"
#include "Platform/Linux/Bus/BusValues.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateBus.h"

#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace platform {

namespace {

using testsupport::eventually;

constexpr auto busService = "org.freedesktop.DBus";

// What came to a call.
struct Answers
{
    int count = 0;
    int errors = 0;
    std::string text;
    bool isNumber = false;
};

int note(sd_bus_message *message, void *answers, sd_bus_error * /*error*/)
{
    auto &noted = *static_cast<Answers *>(answers);
    ++noted.count;
    noted.errors += sd_bus_message_is_method_error(message, nullptr);
    noted.text = BusReader(message).text();
    BusReader other(message);
    noted.isNumber = other.number() != 0 || other.isGood();
    return 0;
}

void useBus(const QString &address)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
}

// Without a bus, unless the test makes one.
class BusConnectionTest : public testing::Test
{
protected:
    ~BusConnectionTest() override { useBus(QStringLiteral("unix:path=/nonexistent")); }

    void startBus()
    {
        bus = std::make_unique<testsupport::PrivateBus>(runtime);
        useBus(bus->address());
    }

    void connect()
    {
        connection = BusConnection::openSession();
        ASSERT_TRUE(connection);
        QObject::connect(connection.get(), &BusConnection::ended, [this] { ++ends; });
    }

    // For the bus's own number, which every bus has.
    void ask()
    {
        const auto call = connection->newCall({busService, "/", busService, "GetId"});
        question = connection->call(call.get(), note, &answers);
    }

    testsupport::PrivateRuntime runtime;
    std::unique_ptr<testsupport::PrivateBus> bus;
    std::unique_ptr<BusConnection> connection;
    int ends = 0;
    Answers answers;
    BusSlot question;
};

TEST_F(BusConnectionTest, IsNullWithoutABus)
{
    EXPECT_FALSE(BusConnection::openSession());
    useBus(QStringLiteral("nonsense"));
    EXPECT_FALSE(BusConnection::openSession());
    QFile(runtime.path(QStringLiteral("file"))).open(QIODevice::WriteOnly);
    useBus(QStringLiteral("unix:path=") + runtime.path(QStringLiteral("file")));
    EXPECT_FALSE(BusConnection::openSession());
}

TEST_F(BusConnectionTest, HearsTheAnswerToWhatWasAskedBeforeTheBusLetItIn)
{
    startBus();
    connect();
    ask();
    ASSERT_TRUE(eventually([this] { return answers.count == 1; }));
    EXPECT_EQ(answers.errors, 0);
    EXPECT_EQ(answers.text.size(), 32U);
    EXPECT_FALSE(answers.isNumber);
    EXPECT_EQ(connection->uniqueName().substr(0, 3), ":1.");
}

TEST_F(BusConnectionTest, HearsNothingOfACallThatItGaveUp)
{
    startBus();
    connect();
    ask();
    question.reset();
    Answers later;
    const auto call = connection->newCall({busService, "/", busService, "GetId"});
    const auto kept = connection->call(call.get(), note, &later);
    ASSERT_TRUE(eventually([&] { return later.count == 1; }));
    EXPECT_EQ(answers.count, 0);
}

TEST_F(BusConnectionTest, SaysOnceThatTheBusHasEnded)
{
    startBus();
    connect();
    ask();
    ASSERT_TRUE(eventually([this] { return answers.count == 1; }));
    bus->process().sendSignal(SIGSTOP);
    ask();
    bus->process().sendSignal(SIGKILL);
    ASSERT_TRUE(eventually([this] { return ends == 1; }));
    EXPECT_EQ(answers.count, 2);
    EXPECT_EQ(answers.errors, 1);
    ask();
    connection->send(connection->newSignal("/", "org.stirra.Test", "Late").get());
    const auto name = std::make_unique<BusName>(*connection, "org.stirra.Test");
    testsupport::letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(answers.count, 2);
}

TEST_F(BusConnectionTest, WaitsForNobodyWhoSaysNothing)
{
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(runtime.path(QStringLiteral("silent"))));
    useBus(QStringLiteral("unix:path=") + silent.fullServerName());
    connect();
    ask();
    ASSERT_TRUE(eventually([&silent] { return silent.hasPendingConnections(); }));
    EXPECT_EQ(ends, 0);
    delete silent.nextPendingConnection();
    EXPECT_TRUE(eventually([this] { return ends == 1; }));
    EXPECT_EQ(answers.errors, 1);
}

TEST_F(BusConnectionTest, IsShownTheDoorWhereItsWordsAreNotUnderstood)
{
    QLocalServer stranger;
    ASSERT_TRUE(stranger.listen(runtime.path(QStringLiteral("stranger"))));
    useBus(QStringLiteral("unix:path=") + stranger.fullServerName());
    connect();
    ASSERT_TRUE(eventually([&stranger] { return stranger.hasPendingConnections(); }));
    stranger.nextPendingConnection()->write("REJECTED\r\nNONSENSE\r\nNONSENSE\r\n");
    EXPECT_TRUE(eventually([this] { return ends == 1; }));
}

// Far more than the socket takes.
TEST_F(BusConnectionTest, SendsLaterWhatTheBusDoesNotTakeNow)
{
    constexpr int signals = 300;
    constexpr std::size_t bytes = 100'000;
    startBus();
    connect();
    ask();
    ASSERT_TRUE(eventually([this] { return answers.count == 1; }));
    EXPECT_FALSE(connection->isBehind());
    int catches = 0;
    QObject::connect(connection.get(), &BusConnection::caughtUp, [&catches] { ++catches; });
    bus->process().sendSignal(SIGSTOP);
    for (int i = 0; i < signals; ++i) {
        const auto signal = connection->newSignal("/", "org.stirra.Test", "Much");
        ASSERT_TRUE(BusWriter(signal.get()).addBytes(bytes));
        connection->send(signal.get());
    }
    ask();
    EXPECT_TRUE(connection->isBehind());
    EXPECT_EQ(catches, 0);
    bus->process().sendSignal(SIGCONT);
    EXPECT_TRUE(eventually([this] { return answers.count == 2; }));
    EXPECT_EQ(catches, 1);
    EXPECT_FALSE(connection->isBehind());
    EXPECT_EQ(answers.errors, 0);
    EXPECT_EQ(ends, 0);
}

TEST_F(BusConnectionTest, FollowsWhoHasAName)
{
    startBus();
    connect();
    auto owner = bus->connect();
    const auto text = QStringLiteral("org.stirra.Test");
    ASSERT_TRUE(owner.registerService(text));
    BusName name(*connection, "org.stirra.Test");
    EXPECT_TRUE(eventually([&name] { return name.isOwned(); }));
    owner.unregisterService(text);
    EXPECT_TRUE(eventually([&name] { return !name.isOwned(); }));
    owner.registerService(text);
    EXPECT_TRUE(eventually([&name] { return name.isOwned(); }));
}

} // namespace

} // namespace platform

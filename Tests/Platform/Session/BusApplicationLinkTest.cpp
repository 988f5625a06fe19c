// One application per session bus, with other processes and a bus of the test's own.

#include "Platform/Linux/Session/BusApplicationLink.h"

#include "Platform/Linux/Session/ApplicationIdentity.h"
#include "Tests/Platform/Session/ApplicationLinkTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QGuiApplication>

#include <gmock/gmock.h>

#include <csignal>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::Optional;
using testsupport::claimInTime;
using testsupport::eventually;
using testsupport::OtherApplication;
using testsupport::PrivateBus;
using testsupport::PrivateRuntime;

const QString way = QStringLiteral("bus");

class BusApplicationLinkTest : public testing::Test
{
protected:
    void SetUp() override
    {
        QGuiApplication::setDesktopFileName(QStringLiteral("org.stirra.Linked-Application"));
        ASSERT_TRUE(bus.isOpen());
    }

    // Calls the application as the desktop does, and waits for its answer's type.
    QDBusMessage::MessageType call(const QString &method, const QVariantList &arguments)
    {
        auto message = QDBusMessage::createMethodCall(applicationId(), applicationPath(),
                                                      QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        return bus.connect().call(message, QDBus::BlockWithGui).type();
    }

    PrivateRuntime runtime;
    PrivateBus bus{runtime};
};

} // namespace

TEST_F(BusApplicationLinkTest, ItsNamesAreThoseOfTheDesktopEntry)
{
    EXPECT_EQ(applicationId(), QStringLiteral("org.stirra.Linked-Application"));
    EXPECT_EQ(applicationPath(), QStringLiteral("/org/stirra/Linked_Application"));
}

TEST_F(BusApplicationLinkTest, TheFirstIsTheApplicationAndHearsTheSecondsToken)
{
    OtherApplication first(runtime, way, QString());
    ASSERT_TRUE(first.isSole());
    BusApplicationLink second(bus.connect(), QStringLiteral("token_TIME5"));
    EXPECT_FALSE(claimInTime(second));
    EXPECT_TRUE(first.wasTold("reopen token_TIME5"));
    BusApplicationLink third(bus.connect(), QString());
    EXPECT_FALSE(claimInTime(third));
    EXPECT_TRUE(first.wasTold("reopen "));
}

TEST_F(BusApplicationLinkTest, OfSeveralInTheSameInstantExactlyOneIsTheApplication)
{
    testsupport::expectExactlyOneOf(6, runtime, way);
}

TEST_F(BusApplicationLinkTest, TheNameOfAnApplicationThatWasKilledIsFree)
{
    OtherApplication first(runtime, way, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGKILL);
    ASSERT_THAT(first.process().waitForExit(), Optional(-SIGKILL));
    BusApplicationLink second(bus.connect(), QString());
    EXPECT_TRUE(eventually([&] { return second.claim(); })); // the bus may hear of the end a moment later
}

TEST_F(BusApplicationLinkTest, AnApplicationThatDoesNotAnswerIsNotWaitedFor)
{
    OtherApplication first(runtime, way, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGSTOP);
    BusApplicationLink second(bus.connect(), QStringLiteral("late"));
    EXPECT_FALSE(claimInTime(second));
    first.process().sendSignal(SIGCONT);
    EXPECT_TRUE(first.wasTold("reopen late"));
}

TEST_F(BusApplicationLinkTest, TheDesktopCanOpenItAndQuitIt)
{
    BusApplicationLink link(bus.connect(), QString());
    std::vector<QString> requests;
    QObject::connect(&link, &ApplicationLink::reopenRequested,
                     [&requests](const QString &token) { requests.push_back(token); });
    QObject::connect(&link, &ApplicationLink::quitRequested,
                     [&requests] { requests.push_back(QStringLiteral("quit")); });
    ASSERT_TRUE(link.claim());

    const QVariantMap platformData{{QStringLiteral("desktop-startup-id"), QStringLiteral("x_TIME1")}};
    EXPECT_EQ(call(QStringLiteral("Activate"), {platformData}), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(QStringLiteral("Open"), {QStringList(QStringLiteral("file:///a")), QVariantMap()}),
              QDBusMessage::ReplyMessage);
    const auto noParameters = QVariant::fromValue(QVariantList());
    EXPECT_EQ(call(QStringLiteral("ActivateAction"), {QStringLiteral("quit"), noParameters, QVariantMap()}),
              QDBusMessage::ReplyMessage);
    EXPECT_THAT(requests, ElementsAre(QStringLiteral("x_TIME1"), QString(), QStringLiteral("quit")));
}

TEST_F(BusApplicationLinkTest, ACallThatItDoesNotKnowIsAnErrorAndNothingElse)
{
    BusApplicationLink link(bus.connect(), QString());
    int requests = 0;
    QObject::connect(&link, &ApplicationLink::reopenRequested, [&requests] { ++requests; });
    QObject::connect(&link, &ApplicationLink::quitRequested, [&requests] { ++requests; });
    ASSERT_TRUE(link.claim());
    EXPECT_EQ(call(QStringLiteral("Explode"), {}), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(QStringLiteral("Activate"), {QStringLiteral("not a map")}), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(QStringLiteral("quitRequested"), {}), QDBusMessage::ErrorMessage);
    EXPECT_EQ(requests, 0);
}

TEST_F(BusApplicationLinkTest, WhenTheApplicationEndsTheNextOneCanBeIt)
{
    {
        OtherApplication first(runtime, way, QString());
        ASSERT_TRUE(first.isSole());
    }
    BusApplicationLink second(bus.connect(), QString());
    EXPECT_TRUE(eventually([&] { return second.claim(); }));
}

} // namespace platform

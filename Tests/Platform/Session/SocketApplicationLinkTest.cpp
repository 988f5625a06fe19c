// One application without a session bus, with other processes and in a folder of the test's own.

#include "Platform/Linux/Session/SocketApplicationLink.h"

#include "Tests/Platform/Session/ApplicationLinkTest.h"
#include "Tests/Support/Eventually.h"

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include <gmock/gmock.h>

#include <csignal>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;
using testsupport::claimInTime;
using testsupport::eventually;
using testsupport::letPass;
using testsupport::OtherApplication;
using testsupport::PrivateRuntime;

class SocketApplicationLinkTest : public testing::Test
{
protected:
    // The application in this process.
    void claimHere()
    {
        QObject::connect(&link, &ApplicationLink::reopenRequested,
                         [this](const QString &token) { tokens.push_back(token); });
        ASSERT_TRUE(claimInTime(link));
    }

    // A connection to it that may send what it likes.
    std::unique_ptr<QLocalSocket> stranger()
    {
        auto socket = std::make_unique<QLocalSocket>();
        socket->connectToServer(path + QStringLiteral(".socket"));
        EXPECT_TRUE(socket->waitForConnected());
        return socket;
    }

    std::unique_ptr<QLocalSocket> strangerSaying(const QByteArray &text)
    {
        auto socket = stranger();
        socket->write(text);
        socket->flush();
        return socket;
    }

    PrivateRuntime runtime;
    QString path = runtime.runtimeFolder() + QStringLiteral("/app-:0");
    SocketApplicationLink link{path, QStringLiteral("own_TIME1")};
    std::vector<QString> tokens;
};

} // namespace

TEST_F(SocketApplicationLinkTest, TheFirstIsTheApplicationAndHearsTheSecondsToken)
{
    claimHere();
    OtherApplication second(runtime, path, QStringLiteral("token_TIME5"));
    EXPECT_FALSE(second.isSole());
    EXPECT_THAT(second.process().waitForExit(), Optional(0));
    OtherApplication third(runtime, path, QString());
    EXPECT_FALSE(third.isSole());
    EXPECT_TRUE(eventually([&] { return tokens.size() == 2; }));
    EXPECT_THAT(tokens, ElementsAre(QStringLiteral("token_TIME5"), QString()));
}

TEST_F(SocketApplicationLinkTest, OfSeveralInTheSameInstantExactlyOneIsTheApplication)
{
    testsupport::expectExactlyOneOf(6, runtime, path);
}

TEST_F(SocketApplicationLinkTest, WhatAKilledApplicationLeftIsTakenOver)
{
    OtherApplication first(runtime, path, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGKILL);
    ASSERT_THAT(first.process().waitForExit(), Optional(-SIGKILL));
    ASSERT_TRUE(QFileInfo::exists(path + QStringLiteral(".lock")));
    ASSERT_TRUE(QFileInfo::exists(path + QStringLiteral(".socket")));

    claimHere();
    OtherApplication second(runtime, path, QStringLiteral("again"));
    EXPECT_FALSE(second.isSole());
    EXPECT_TRUE(eventually([&] { return tokens == std::vector{QStringLiteral("again")}; }));
}

TEST_F(SocketApplicationLinkTest, OfSeveralThatFindWhatAKilledOneLeftExactlyOneIsTheApplication)
{
    OtherApplication first(runtime, path, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGKILL);
    ASSERT_THAT(first.process().waitForExit(), Optional(-SIGKILL));
    testsupport::expectExactlyOneOf(6, runtime, path);
}

TEST_F(SocketApplicationLinkTest, AnApplicationThatDoesNotAnswerIsNotWaitedFor)
{
    OtherApplication first(runtime, path, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGSTOP);
    EXPECT_FALSE(claimInTime(link));
    first.process().sendSignal(SIGCONT);
    EXPECT_TRUE(first.wasTold("reopen own_TIME1"));
}

TEST_F(SocketApplicationLinkTest, AnApplicationWhoseQueueIsFullIsNotWaitedFor)
{
    OtherApplication first(runtime, path, QString());
    ASSERT_TRUE(first.isSole());
    first.process().sendSignal(SIGSTOP);
    std::vector<std::unique_ptr<QLocalSocket>> crowd;
    for (int i = 0; i < 200; ++i) {
        crowd.push_back(std::make_unique<QLocalSocket>());
        crowd.back()->connectToServer(path + QStringLiteral(".socket"));
    }
    EXPECT_FALSE(claimInTime(link));
}

TEST_F(SocketApplicationLinkTest, WhenTheApplicationEndsTheNextOneCanBeIt)
{
    {
        OtherApplication first(runtime, path, QString());
        ASSERT_TRUE(first.isSole());
    }
    EXPECT_TRUE(claimInTime(link));
}

TEST_F(SocketApplicationLinkTest, WithoutAFolderEveryoneIsTheApplication)
{
    SocketApplicationLink homeless(runtime.path(QStringLiteral("missing/app")), QString());
    EXPECT_TRUE(claimInTime(homeless));
}

TEST_F(SocketApplicationLinkTest, TheSocketIsOpenToTheUserAlone)
{
    claimHere();
    const QFileInfo socket(path + QStringLiteral(".socket"));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    ASSERT_TRUE(socket.exists());
    EXPECT_EQ(socket.permissions() & others, QFile::Permissions());
}

TEST_F(SocketApplicationLinkTest, WhatComesInPiecesIsOneRequest)
{
    claimHere();
    const auto socket = strangerSaying("first_");
    letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(tokens, IsEmpty());
    socket->write("TIME7\nand more\n");
    socket->flush();
    EXPECT_TRUE(eventually([&] { return !tokens.empty(); }));
    letPass(std::chrono::milliseconds(50));
    EXPECT_THAT(tokens, ElementsAre(QStringLiteral("first_TIME7")));
}

TEST_F(SocketApplicationLinkTest, WhatIsNoRequestIsDroppedAndTheNextIsHeard)
{
    claimHere();
    static_cast<void>(stranger());
    static_cast<void>(strangerSaying("cut off"));
    const auto silent = stranger();
    const auto endless = strangerSaying(QByteArray(100'000, 'x'));
    EXPECT_TRUE(eventually([&] { return endless->state() == QLocalSocket::UnconnectedState; }));
    EXPECT_THAT(tokens, IsEmpty());

    const auto polite = strangerSaying("hello\n");
    EXPECT_TRUE(eventually([&] { return tokens == std::vector{QStringLiteral("hello")}; }));
}

TEST_F(SocketApplicationLinkTest, BytesThatAreNoTextAreSurvived)
{
    claimHere();
    const auto socket = strangerSaying(QByteArray("\x00\xff\xfe\x80\n", 5));
    EXPECT_TRUE(eventually([&] { return tokens.size() == 1; }));
    const auto polite = strangerSaying("hello\n");
    EXPECT_TRUE(eventually([&] { return tokens.back() == QStringLiteral("hello"); }));
}

} // namespace platform

#include "Tests/Platform/Portal/RemoteDesktopTest.h"

#include <QFile>

namespace platform {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testsupport::eventually;
using testsupport::sessionBus;

namespace {

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
const QVariantMap devicesAlone{{QStringLiteral("types"), 3U}};

QVariantMap persistent(const QString &token = {})
{
    QVariantMap options{{QStringLiteral("types"), 3U}, {QStringLiteral("persist_mode"), 2U}};
    if (!token.isEmpty()) {
        options.insert(QStringLiteral("restore_token"), token);
    }
    return options;
}

} // namespace

void RemoteDesktopTest::startPortal(const Portal::Script &script)
{
    portal.reset();
    portal.emplace(sessionBus(), script);
    ASSERT_TRUE(portal->isOpen());
}

void RemoteDesktopTest::openPoster()
{
    candidate = PortalInputPoster::candidate(settings);
    poster = candidate(why);
    ASSERT_NE(poster, nullptr);
}

void RemoteDesktopTest::runSession(const Portal::Script &script)
{
    startPortal(script);
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
}

bool RemoteDesktopTest::comesToBeReady() const
{
    return eventually([this] { return poster->isReady(); });
}

bool RemoteDesktopTest::comesToBeClosed() const
{
    return eventually([this] { return !poster->isOpen(); });
}

bool RemoteDesktopTest::comesToSay(const char *reason) const
{
    return eventually([&] { return poster->obstacle().reason.contains(QString::fromLatin1(reason)); });
}

bool RemoteDesktopTest::settles()
{
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
    call << QStringLiteral("org.freedesktop.portal.RemoteDesktop");
    const auto answer = QDBusConnection::sessionBus().asyncCall(call);
    return eventually([&] { return answer.isFinished(); });
}

bool RemoteDesktopTest::asksAgain(int sessionCount) const
{
    return eventually([&] {
        static_cast<void>(move(0, 0));
        return portal->sessionCount() >= sessionCount;
    });
}

bool RemoteDesktopTest::postsInVain(int count) const
{
    const int sessionCount = portal->sessionCount();
    for (int i = 0; i < count; ++i) {
        if (move(1, 1) || !settles()) {
            return false;
        }
    }
    return portal->sessionCount() == sessionCount;
}

std::vector<std::vector<InputEvent>> RemoteDesktopTest::everyAction()
{
    return {
        {MouseMoved{{1, 1}}},
        {MouseMoved{{0, 0}}},
        {KeyEvent{leftCommand, true, 0}, KeyEvent{leftCommand, false, 0}},
        {KeyEvent{rightCommand, true, 0}, KeyEvent{rightCommand, false, 0}},
        {ScrollPixels{1}},
        {ScrollPixels{-1}},
    };
}

TEST_F(RemoteDesktopTest, NothingIsAskedBeforeTheFirstUse)
{
    startPortal();
    ASSERT_TRUE(settles());
    EXPECT_EQ(portal->callCount(), 1); // the test's own
    EXPECT_TRUE(poster->isOpen());
    EXPECT_FALSE(poster->isReady());
    EXPECT_FALSE(poster->isWaiting());
    EXPECT_TRUE(comesToSay("has not been asked"));
}

TEST_F(RemoteDesktopTest, PreparingOpensASession)
{
    startPortal();
    poster->prepare();
    EXPECT_FALSE(poster->isReady());
    EXPECT_TRUE(poster->isWaiting());
    ASSERT_TRUE(comesToBeReady());
    EXPECT_FALSE(poster->isWaiting());
    EXPECT_TRUE(portal->isSessionRunning());
    EXPECT_EQ(portal->questionCount(), 1);
    EXPECT_EQ(poster->obstacle(), Obstacle());
    EXPECT_TRUE(move(1, 1));
}

TEST_F(RemoteDesktopTest, TheFirstPostOpensASessionWhereNobodyHasPrepared)
{
    startPortal();
    EXPECT_FALSE(move(1, 1));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_TRUE(move(1, 1));
}

TEST_F(RemoteDesktopTest, OneSessionServesEveryStart)
{
    runSession();
    for (int i = 0; i < 3; ++i) {
        poster->prepare();
        EXPECT_TRUE(move(i, i));
        ASSERT_TRUE(settles());
    }
    EXPECT_EQ(portal->sessionCount(), 1);
    EXPECT_EQ(portal->questionCount(), 1);
}

TEST_F(RemoteDesktopTest, NothingIsPostedNorAskedTwiceWhileTheUserThinks)
{
    startPortal({.toQuestion = Answer::later});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->questionCount() == 1; }));
    EXPECT_TRUE(postsInVain(5));
    poster->prepare();
    EXPECT_TRUE(postsInVain(5));
    EXPECT_EQ(portal->questionCount(), 1);
    EXPECT_TRUE(comesToSay("has not answered"));

    portal->answerQuestion(Answer::grant);
    ASSERT_TRUE(comesToBeReady());
    EXPECT_TRUE(move(1, 1));
    ASSERT_TRUE(settles());
    EXPECT_THAT(portal->inputs(), SizeIs(1));
}

TEST_F(RemoteDesktopTest, VersionOneIsAskedForTheDevicesAlone)
{
    runSession({.version = 1});
    EXPECT_THAT(portal->selections(), ElementsAre(devicesAlone));
    EXPECT_FALSE(QFile::exists(tokenFile()));
}

TEST_F(RemoteDesktopTest, VersionTwoLetsTheNextRunInByTheTokenWithoutAQuestion)
{
    runSession();
    const auto first = portal->token();
    EXPECT_EQ(settings.token.load(), first);
    openPoster();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    const auto second = portal->token();
    EXPECT_NE(second, first);
    EXPECT_EQ(settings.token.load(), second);
    openPoster();
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    EXPECT_THAT(portal->selections(), ElementsAre(persistent(), persistent(first), persistent(second)));
    EXPECT_EQ(portal->questionCount(), 1);
}

TEST_F(RemoteDesktopTest, ATokenThatThePortalDoesNotKnowLeadsToTheQuestion)
{
    settings.token.save(QStringLiteral("from-another-life"));
    runSession();
    EXPECT_THAT(portal->selections(), ElementsAre(persistent(QStringLiteral("from-another-life"))));
    EXPECT_EQ(portal->questionCount(), 1);
    EXPECT_EQ(settings.token.load(), portal->token());
}

TEST_F(RemoteDesktopTest, WhereThePortalGivesNoTokenTheSpentOneIsNotKept)
{
    settings.token.save(QStringLiteral("spent"));
    runSession({.givesTokens = false});
    EXPECT_FALSE(QFile::exists(tokenFile()));
}

TEST_F(RemoteDesktopTest, ATokenThatCannotBeKeptIsNoObstacle)
{
    QFile file(folder.filePath(QStringLiteral("state"))); // in the folder's place
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    runSession();
    EXPECT_TRUE(move(1, 1));
}

TEST_F(RemoteDesktopTest, TheSessionEndsWithThePoster)
{
    runSession();
    poster.reset();
    EXPECT_TRUE(eventually([&] { return !portal->hasSession(); }));
    EXPECT_THAT(portal->closed(), ElementsAre(QStringLiteral("Session")));
}

TEST_F(RemoteDesktopTest, TheQuestionEndsWithThePoster)
{
    startPortal({.toQuestion = Answer::later});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->questionCount() == 1; }));
    poster.reset();
    EXPECT_TRUE(eventually([&] { return !portal->hasSession(); }));
    EXPECT_THAT(portal->closed(), ElementsAre(QStringLiteral("Request"), QStringLiteral("Session")));
}

TEST_F(RemoteDesktopTest, WhatTheUserDoesNotGrantIsNotPosted)
{
    runSession({.grantedDevices = 2});
    EXPECT_TRUE(move(1, 1));
    EXPECT_FALSE(poster->post(KeyEvent{55, true, 0}));
    EXPECT_FALSE(poster->post(KeyEvent{55, false, 0}));
    openPoster();
    runSession({.grantedDevices = 1});
    EXPECT_FALSE(move(2, 2));
    EXPECT_FALSE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(KeyEvent{55, true, 0}));
    EXPECT_TRUE(poster->post(KeyEvent{55, false, 0}));
}

} // namespace platform

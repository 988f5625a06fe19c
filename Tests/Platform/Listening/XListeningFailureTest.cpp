// Listening where the X server is missing, too old, goes away or is not the session's.

#include "Platform/Trust.h"
#include "Tests/Platform/Listening/ListeningTest.h"
#include "Tests/Support/XRelay.h"

#include <QAbstractEventDispatcher>
#include <QEventLoop>
#include <QTimer>

#include <csignal>

namespace platform {

namespace {

using testing::SizeIs;
using testsupport::eventually;
using testsupport::ScopedDisplay;
using testsupport::XRelay;

class XListeningFailureTest : public XListeningTest
{
protected:
    ~XListeningFailureTest() override
    {
        qunsetenv("STIRRA_INPUT_BACKEND");
        qunsetenv("STIRRA_LISTEN_BACKEND");
    }

    void expectNothingWorks()
    {
        EXPECT_FALSE(listener->isTrusted());
        EXPECT_EQ(listener->makeTap(allPointerKinds, events.handler()), nullptr);
        EXPECT_EQ(listener->makeTap(allKeyKinds, events.handler()), nullptr);
    }

    ObservedEvents events;
};

// How often the event loop has something to do in a fifth of a second.
int wakeUps()
{
    int count = 0;
    QEventLoop loop;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &loop,
                     [&count] { ++count; });
    QTimer::singleShot(200, &loop, &QEventLoop::quit);
    loop.exec();
    return count;
}

} // namespace

TEST_F(XListeningFailureTest, OnAnX11SessionTheProgramIsTrusted)
{
    EXPECT_TRUE(listener->isTrusted());
    EXPECT_TRUE(isTrusted()) << "the native listener is the current one where none is installed";
    EXPECT_NE(listener->makeTap(allPointerKinds, events.handler()), nullptr);
}

TEST_F(XListeningFailureTest, WithoutAServerNothingWorks)
{
    for (const auto *display : {"", ":64321", "not a display", "/no/such/socket"}) {
        const ScopedDisplay noServer(QString::fromLatin1(display));
        expectNothingWorks();
    }
}

TEST_F(XListeningFailureTest, WithoutXInputNothingWorks)
{
    const XRelay relay(server.display(), "XInputExtension", "xinputextension");
    const ScopedDisplay old(relay.display());
    expectNothingWorks();
    EXPECT_TRUE(relay.hasChangedAny());
}

TEST_F(XListeningFailureTest, WithAnXInputThatIsTooOldNothingWorks)
{
    const char version22[] = {47, 2, 0, 2, 0, 2, 0};
    const char version20[] = {47, 2, 0, 2, 0, 0, 0};
    const XRelay relay(server.display(), QByteArray(version22, sizeof version22),
                       QByteArray(version20, sizeof version20));
    const ScopedDisplay old(relay.display());
    expectNothingWorks();
    EXPECT_TRUE(relay.hasChangedAny());
}

TEST_F(XListeningFailureTest, WithoutXkbTheKeysAreNotToldButTheMovesAre)
{
    const XRelay relay(server.display(), "XKEYBOARD", "xkeyboard");
    const ScopedDisplay without(relay.display());
    EXPECT_EQ(listener->makeTap(allKeyKinds, events.handler()), nullptr);
    const auto tap = tapInto(events, allPointerKinds);
    ASSERT_NE(tap, nullptr);
    moveTo(5, 6);
    EXPECT_TRUE(eventually([this] { return events.size() == 1; }));
}

TEST_F(XListeningFailureTest, WithoutLeaveToPostThereIsNoTrust)
{
    qputenv("STIRRA_INPUT_BACKEND", "none");
    EXPECT_FALSE(listener->isTrusted());
}

TEST_F(XListeningFailureTest, TheEnvironmentForcesAWay)
{
    qputenv("STIRRA_LISTEN_BACKEND", "none");
    expectNothingWorks();
    qputenv("STIRRA_LISTEN_BACKEND", "another");
    EXPECT_TRUE(listener->isTrusted());
}

TEST_F(XListeningFailureTest, AServerThatDiesEndsTheTapForGood)
{
    const auto pointer = tapInto(events, allPointerKinds);
    const auto keyboard = tapInto(events, allKeyKinds);
    ASSERT_TRUE(pointer && keyboard);
    moveTo(1, 2);
    ASSERT_TRUE(eventually([this] { return events.size() == 1; }));

    server.process().sendSignal(SIGKILL);
    ASSERT_THAT(server.process().waitForExit(), testing::Optional(-SIGKILL));
    EXPECT_LT(wakeUps(), 100) << "the end of a connection is read over and over";
    pointer->setEnabled(false);
    pointer->setEnabled(true);
    keyboard->setEnabled(false);
    EXPECT_THAT(events.all(), SizeIs(1));
}

} // namespace platform

// The ways in which the program ends, and that each is clean.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/SessionManager.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <QDBusMessage>

#include <gmock/gmock.h>

#include <csignal>

using namespace testsupport;

namespace endtoend {

class EndingTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    Desktop desktop;
};

class EndingSignalTest : public EndingTest, public testing::WithParamInterface<int>
{};

INSTANTIATE_TEST_SUITE_P(Signal, EndingSignalTest, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto &value) { return "Of" + std::to_string(value.param); });

TEST_P(EndingSignalTest, EndsTheActiveProgramCleanly)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("Active")));

    stirra.process().sendSignal(GetParam());

    EXPECT_EQ(stirra.process().waitForExit(), 0);
    EXPECT_EQ(stirra.process().standardError(), "");
}

TEST_F(EndingTest, CtrlQInTheWindowEndsIt)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    activate(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([&] { return activeWindow(desktop.x()) == stirra.window(); }));
    ASSERT_TRUE(eventually([&] {
        XUser(desktop.x()).press({XK_Control_L, XK_q});
        return stirra.process().waitForExit(std::chrono::milliseconds(200)).has_value();
    }));
    EXPECT_EQ(stirra.process().exitStatus(), 0);
    EXPECT_EQ(stirra.process().standardError(), "");
}

TEST_F(EndingTest, TheLauncherEntrysQuitActionEndsItWithItsWindowClosed)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    close(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([&] { return desktop.stirraWindows().empty(); }));

    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("org.stirra.Stirra"), QStringLiteral("/org/stirra/Stirra"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
    call << QStringLiteral("quit") << QVariantList() << QVariantMap();
    EXPECT_EQ(desktop.bus().connect().call(call).type(), QDBusMessage::ReplyMessage);

    EXPECT_EQ(stirra.process().waitForExit(), 0);
}

TEST_F(EndingTest, TheProgramEndsWithItsXServer)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("Active")));

    desktop.server().process().end();

    const auto status = stirra.process().waitForExit();
    ASSERT_TRUE(status);
    EXPECT_GE(*status, 0) << "It crashed";
}

TEST_F(EndingTest, TheEndOfTheDesktopSessionEndsTheActiveProgramCleanlyAndASaveDoesNot)
{
    SessionManager manager(desktop.runtime());
    ASSERT_TRUE(manager.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(eventually([&] { return !desktop.stirraWindows().empty(); }));
    ASSERT_TRUE(eventually([&] { return stirra.tree().press(QStringLiteral("Start")); }));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("Active")));

    manager.saveSession();
    letPass(std::chrono::milliseconds(500));
    EXPECT_TRUE(stirra.process().isRunning());
    EXPECT_TRUE(stirra.shows(QStringLiteral("Active")));

    manager.endSession();
    EXPECT_EQ(stirra.process().waitForExit(), 0);
    EXPECT_EQ(stirra.process().standardError(), "");
}

TEST_F(EndingTest, TheEndOfTheDesktopSessionEndsTheProgramWithItsWindowClosed)
{
    SessionManager manager(desktop.runtime());
    ASSERT_TRUE(manager.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    close(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([&] { return desktop.stirraWindows().empty(); }));

    manager.endSession();

    EXPECT_EQ(stirra.process().waitForExit(), 0);
}

TEST_F(EndingTest, TheProgramOutlivesItsSessionBus)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());

    desktop.bus().process().end();

    letPass(std::chrono::seconds(1));
    EXPECT_TRUE(stirra.process().isRunning());
    EXPECT_TRUE(isViewable(desktop.x(), stirra.window()));
}

} // namespace endtoend

// What is heard of the kernel's devices, which are made up, while another session has the seat.

#include "Tests/Platform/Listening/LibinputTapTest.h"

#include <QDir>
#include <QFile>

namespace platform {

namespace {

using testsupport::eventually;
using Kind = testsupport::MockInputDevices::Kind;

// What the login manager tells of sessions, in the files in which it does.
class LibinputSessionTest : public LibinputTapTest
{
protected:
    LibinputSessionTest() { qputenv("XDG_SESSION_ID", "c7"); }
    ~LibinputSessionTest() override { qunsetenv("XDG_SESSION_ID"); }

    // A file of another name takes its place, so that nobody reads half of it.
    void tell(const QByteArray &session, bool isActive)
    {
        QDir().mkpath(QStringLiteral("/run/systemd/sessions"));
        QFile file(pathOf(session) + QStringLiteral(".new"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(isActive ? "ACTIVE=1\nSTATE=active\n" : "ACTIVE=0\nSTATE=online\n");
        file.close();
        ASSERT_EQ(std::rename(QFile::encodeName(file.fileName()).constData(),
                              QFile::encodeName(pathOf(session)).constData()),
                  0);
    }

    void end(const QByteArray &session) { ASSERT_TRUE(QFile::remove(pathOf(session))); }

    [[nodiscard]] static QString pathOf(const QByteArray &session)
    {
        return QStringLiteral("/run/systemd/sessions/") + QString::fromLatin1(session);
    }

    [[nodiscard]] bool isOpened(bool isOpen)
    {
        return eventually([&] { return (devices.openCount(keyboard) > 0) == isOpen; });
    }

    QString keyboard = devices.add(Kind::keyboard);
};

} // namespace

TEST_F(LibinputSessionTest, TheDevicesAreClosedWhileAnotherSessionHasTheSeat)
{
    tell("c7", true);
    const auto tap = enabledTap(allKeyKinds);
    ASSERT_NE(tap, nullptr);
    play(keyboard, {KEY_A});
    ASSERT_TRUE(comes(1));
    EXPECT_GT(devices.openCount(keyboard), 0);

    tell("c7", false);
    tell("c8", true);
    EXPECT_TRUE(isOpened(false));
    tap->setEnabled(false);
    tap->setEnabled(true);
    EXPECT_EQ(devices.openCount(keyboard), 0);

    tell("c8", false);
    tell("c7", true);
    EXPECT_TRUE(isOpened(true));
    play(keyboard, {KEY_B});
    ASSERT_TRUE(comes(2));
    EXPECT_EQ(events.text(), u"ab");
}

TEST_F(LibinputSessionTest, ATapThatIsMadeMeanwhileHearsWhatComesAfterwards)
{
    tell("c7", false);
    const auto tap = enabledTap(allKeyKinds);
    ASSERT_NE(tap, nullptr);
    EXPECT_EQ(devices.openCount(keyboard), 0);
    tell("c7", true);
    EXPECT_TRUE(isOpened(true));
    play(keyboard, {KEY_A});
    ASSERT_TRUE(comes(1));
    EXPECT_EQ(events.text(), u"a");
}

TEST_F(LibinputSessionTest, OneThatIsDisabledStaysSoWhenTheSeatComesBack)
{
    tell("c7", true);
    const auto tap = enabledTap(allKeyKinds);
    const auto other = enabledTap(allKeyKinds);
    ASSERT_NE(tap, nullptr);
    ASSERT_NE(other, nullptr);
    const int countOfBoth = devices.openCount(keyboard);
    tap->setEnabled(false);
    tell("c7", false);
    EXPECT_TRUE(isOpened(false));
    tell("c7", true);
    EXPECT_TRUE(isOpened(true)) << "for the other one";
    EXPECT_EQ(devices.openCount(keyboard) * 2, countOfBoth);
}

TEST_F(LibinputSessionTest, ASessionThatEndsHasTheSeatNoMore)
{
    tell("c7", true);
    const auto tap = enabledTap(allKeyKinds);
    ASSERT_NE(tap, nullptr);
    end("c7");
    EXPECT_TRUE(isOpened(false));
}

TEST_F(LibinputSessionTest, WhereTheLoginManagerKnowsNothingOfTheSessionItIsHeard)
{
    tell("c8", true);
    const auto tap = enabledTap(allKeyKinds);
    ASSERT_NE(tap, nullptr);
    tell("c8", false);
    play(keyboard, {KEY_A});
    ASSERT_TRUE(comes(1));
    EXPECT_GT(devices.openCount(keyboard), 0);
}

} // namespace platform

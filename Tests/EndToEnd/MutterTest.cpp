// Stirra on a Wayland desktop that lets programs control its input through the portal: each action is
// activity, and the bad days of the portal change nothing of the rest.

#include "Tests/EndToEnd/MutterDesktop.h"
#include "Tests/Support/DesktopPortal.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeRemoteDesktopPortal.h"
#include "Tests/Support/PortalBackend.h"

#include <QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <csignal>

using namespace testsupport;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace endtoend {

namespace {

const QString mouseMode = QStringLiteral("Mouse Jiggle");
constexpr double none = 0;

struct Call
{
    QString method;
    QVariantList values;

    bool operator==(const Call &) const = default;
};

// GoogleTest prints what it can read.
void PrintTo(const Call &call, std::ostream *stream)
{
    *stream << call.method.toStdString();
    for (const auto &value : call.values) {
        *stream << ' ' << value.toString().toStdString();
    }
}

Call step(double offset)
{
    return {QStringLiteral("NotifyPointerMotion"), {offset, offset}};
}

Call key(int code, unsigned state)
{
    return {QStringLiteral("NotifyKeyboardKeycode"), {code, state}};
}

Call scroll(double pixels)
{
    return {QStringLiteral("NotifyPointerAxis"), {none, pixels}};
}

mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777U : 0;
}

class MutterTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    void startRealPortal()
    {
        auto &runtime = desktop.runtime();
        ASSERT_TRUE(PortalBackend::announce(runtime.path(QStringLiteral("portals")), runtime.environment()));
        backend.emplace(desktop.bus());
        ASSERT_TRUE(backend->isOpen());
        backend->onInput(desktop.inputFunction());
        restartRealPortal();
    }

    void restartRealPortal()
    {
        realPortal.emplace(desktop.runtime(), desktop.bus());
        ASSERT_TRUE(realPortal->isOpen()) << realPortal->process().standardError().toStdString();
    }

    // Waits until the user was asked so often in all.
    [[nodiscard]] bool comesToAsk(int count) const
    {
        return eventually([&] { return backend->questionCount() >= count; }, moreThanAnInterval);
    }

    // The inputs from this one on.
    [[nodiscard]] std::vector<Call> callsFrom(std::size_t first) const
    {
        std::vector<Call> list;
        for (auto i = first; i < desktop.inputs().size(); ++i) {
            list.push_back({desktop.inputs()[i].call.method, desktop.inputs()[i].call.values});
        }
        return list;
    }

    // Waits for the next action, which has two inputs and is activity, and gives them.
    [[nodiscard]] std::vector<Call> awaitAction()
    {
        const auto count = desktop.inputs().size();
        EXPECT_TRUE(desktop.becomesActive());
        EXPECT_TRUE(desktop.comesToHave(count + 2));
        return callsFrom(count);
    }

    MutterDesktop desktop;
    std::optional<PortalBackend> backend;
    std::optional<DesktopPortal> realPortal;
};

} // namespace

TEST_F(MutterTest, MouseJiggleIsAStepAndItsReturnAndGoesTheOtherWayTheNextTime)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(mouseMode));
    EXPECT_TRUE(comesToAsk(1));
    EXPECT_THAT(awaitAction(), ElementsAre(step(1), step(-1)));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)")));
    EXPECT_THAT(awaitAction(), ElementsAre(step(-1), step(1)));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+-1,+-1)")));
    EXPECT_EQ(backend->questionCount(), 1);
}

TEST_F(MutterTest, KeyPressIsAKeyWithoutAMeaningAndAnotherOneTheNextTime)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Key Press")));
    EXPECT_THAT(awaitAction(), ElementsAre(key(194, 1), key(194, 0)));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Command")));
    EXPECT_THAT(awaitAction(), ElementsAre(key(189, 1), key(189, 0)));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Option")));
}

TEST_F(MutterTest, MouseAndKeyTakeTurnsBeginningWithTheMouse)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse + Key")));
    EXPECT_THAT(awaitAction(), ElementsAre(step(1), step(-1)));
    EXPECT_THAT(awaitAction(), ElementsAre(key(189, 1), key(189, 0)));
}

TEST_F(MutterTest, ScrollPulseIsAPixelAndItsReturn)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Scroll Pulse")));
    EXPECT_THAT(awaitAction(), ElementsAre(scroll(1), scroll(-1)));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Scroll pulse")));
    EXPECT_THAT(awaitAction(), ElementsAre(scroll(1), scroll(-1)));
}

TEST_F(MutterTest, AUserWhoSaysNoIsNotAskedAgainBeforeTheNextStart)
{
    startRealPortal();
    backend->setAnswer(PortalBackend::Answer::refuse);
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(mouseMode));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)"), moreThanAnInterval));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+-1,+-1)"), moreThanAnInterval));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("3 events")));
    EXPECT_EQ(backend->questionCount(), 1);
    EXPECT_THAT(desktop.inputs(), IsEmpty());
    EXPECT_GT(desktop.mutter().idleTime(), std::chrono::seconds(25));

    backend->setAnswer(PortalBackend::Answer::grant);
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Stop")));
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    EXPECT_TRUE(comesToAsk(2));
    EXPECT_THAT(awaitAction(), SizeIs(2));
}

TEST_F(MutterTest, ASessionThatTheDesktopClosesIsAskedForAgainAtALaterTick)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Key Press")));
    EXPECT_THAT(awaitAction(), ElementsAre(key(194, 1), key(194, 0)));
    backend->closeSession();
    EXPECT_TRUE(comesToAsk(2));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Option")));
    EXPECT_THAT(callsFrom(2), IsEmpty());
    EXPECT_THAT(awaitAction(), ElementsAre(key(194, 1), key(194, 0)));
    EXPECT_EQ(backend->questionCount(), 2);
}

TEST_F(MutterTest, APortalThatIsKilledAndComesBackIsAskedAgain)
{
    startRealPortal();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Key Press")));
    ASSERT_TRUE(comesToAsk(1));
    realPortal->process().sendSignal(SIGKILL);
    EXPECT_EQ(realPortal->process().waitForExit(), -SIGKILL);
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Command"), moreThanAnInterval));
    EXPECT_THAT(desktop.inputs(), IsEmpty());
    restartRealPortal();
    EXPECT_TRUE(comesToAsk(2));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Option")));
    EXPECT_THAT(awaitAction(), ElementsAre(key(194, 1), key(194, 0)));
}

TEST_F(MutterTest, TheSecondRunIsLetInByTheTokenThatTheFirstOneKept)
{
    FakeRemoteDesktopPortal portal(desktop.bus());
    ASSERT_TRUE(portal.isOpen());
    portal.onInput(desktop.inputFunction());
    const auto tokenFile = desktop.runtime().path(QStringLiteral("state/stirra/remote-desktop-token"));
    {
        WaylandStirra stirra(desktop.desktop());
        ASSERT_TRUE(stirra.startIn(mouseMode));
        EXPECT_THAT(awaitAction(), ElementsAre(step(1), step(-1)));
        EXPECT_EQ(modeOf(tokenFile), 0600U);
    }
    ASSERT_TRUE(eventually([&] { return !portal.hasSession(); }));
    const auto token = portal.token();
    WaylandStirra stirra(desktop.desktop());
    ASSERT_TRUE(stirra.startIn(mouseMode));
    EXPECT_THAT(awaitAction(), ElementsAre(step(1), step(-1)));
    ASSERT_THAT(portal.selections(), SizeIs(2));
    EXPECT_EQ(portal.selections()[1].value(QStringLiteral("restore_token")), token);
    EXPECT_EQ(portal.questionCount(), 1);
    EXPECT_EQ(modeOf(tokenFile), 0600U);
}

} // namespace endtoend

// What the rest of the desktop sees of each action, and that the idle clock falls with it.

#include "Tests/EndToEnd/SeenAction.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <QFile>

#include <gmock/gmock.h>

using namespace testsupport;
using testing::ElementsAre;

namespace endtoend {

namespace {

using Kind = XRawEvent::Kind;

constexpr std::uint32_t keyF24 = 202;
constexpr std::uint32_t keyF19 = 197;
constexpr std::uint32_t scrollLeft = 6;
constexpr std::uint32_t scrollRight = 7;

// Where a motion of the action went to, from where the pointer was.
QPoint offset(const SeenAction &action, std::size_t motion)
{
    const auto &event = action.events.at(motion);
    return QPoint(qRound(event.dx()), qRound(event.dy())) - action.pointerBefore;
}

void expectJiggle(const SeenAction &action, QPoint expectedOffset)
{
    ASSERT_THAT(action.kinds(), ElementsAre(Kind::motion, Kind::motion));
    EXPECT_EQ(offset(action, 0), expectedOffset);
    EXPECT_EQ(offset(action, 1), QPoint(0, 0));
    EXPECT_EQ(action.pointerAfter, action.pointerBefore);
    EXPECT_GE(action.duration(), 40U);
    EXPECT_LE(action.duration(), 200U);
}

void expectKey(const SeenAction &action, std::uint32_t keyCode)
{
    EXPECT_THAT(action.kinds(), ElementsAre(Kind::keyPress, Kind::keyRelease));
    EXPECT_THAT(action.details(), ElementsAre(keyCode, keyCode));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A program of the desktop with the focus in its text field, which ends with what was typed when Return is
// pressed.
class TextProgram
{
public:
    TextProgram(Desktop &desktop, const QString &title, const QString &program, const QStringList &arguments)
        : desktop_(desktop)
        , process_(program, arguments, desktop.environment())
        , title_(title)
    {}

    [[nodiscard]] bool hasFocus()
    {
        return eventually([this] {
            const auto windows = windowsTitled(desktop_.x(), title_);
            if (!windows.empty() && activeWindow(desktop_.x()) != windows.front()) {
                activate(desktop_.x(), windows.front());
                letPass(std::chrono::milliseconds(50));
            }
            return !windows.empty() && activeWindow(desktop_.x()) == windows.front();
        });
    }

    ChildProcess &process() { return process_; }

private:
    Desktop &desktop_;
    ChildProcess process_;
    QString title_;
};

// Two keys of the engine between an "a" and a "b" of the user.
void pressBothKeysBetweenLetters(Desktop &desktop, Stirra &stirra, TextProgram &text)
{
    const XUser user(desktop.x());
    ASSERT_TRUE(text.hasFocus());
    user.type("a");
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    ASSERT_TRUE(text.hasFocus());
    const auto windows = mappedWindows(desktop.x());

    const auto first = awaitAction(desktop);
    ASSERT_TRUE(first);
    expectKey(*first, keyF24);
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Command")));
    const auto second = awaitAction(desktop);
    ASSERT_TRUE(second);
    expectKey(*second, keyF19);
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Option")));

    EXPECT_FALSE(desktop.observer().isAnythingHeldDown());
    EXPECT_THAT(mappedWindows(desktop.x()), testing::UnorderedElementsAreArray(windows));
    EXPECT_TRUE(text.hasFocus());
    user.type("b");
    user.press({XK_Return});
}

} // namespace

TEST(ActionsTest, MouseJiggleMovesByOneAndReturnsAndGoesTheOtherWayTheNextTime)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));

    const auto first = awaitAction(desktop);
    ASSERT_TRUE(first);
    expectJiggle(*first, {1, 1});
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle")));

    const auto second = awaitAction(desktop);
    ASSERT_TRUE(second);
    expectJiggle(*second, {-1, -1});
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+-1,+-1)")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("3 events")));
}

TEST(ActionsTest, KeyPressTypesNothingIntoATerminal)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Key Press")));
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("15s")));
    const auto file = desktop.runtime().path(QStringLiteral("typed"));
    TextProgram terminal(desktop, QStringLiteral("terminal"), QStringLiteral("xterm"),
                         {QStringLiteral("-T"), QStringLiteral("terminal"), QStringLiteral("-e"),
                          QStringLiteral("sh"), QStringLiteral("-c"),
                          QStringLiteral("read -r line; printf %s \"$line\" > '%1'").arg(file)});

    pressBothKeysBetweenLetters(desktop, stirra, terminal);

    EXPECT_EQ(terminal.process().waitForExit(), 0);
    EXPECT_EQ(contentOf(file), "ab");
}

TEST(ActionsTest, KeyPressTypesNothingIntoATextFieldAndDoesNothingElseThere)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Key Press")));
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("15s")));
    TextProgram field(desktop, QStringLiteral("Text field"), QStringLiteral(TEXT_FIELD_PROGRAM), {});

    pressBothKeysBetweenLetters(desktop, stirra, field);

    EXPECT_EQ(field.process().waitForExit(), 0);
    EXPECT_EQ(field.process().standardOutput(), "ab\n");
}

TEST(ActionsTest, MouseAndKeyTakeTurnsBeginningWithTheMouse)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse + Key")));

    const auto first = awaitAction(desktop);
    ASSERT_TRUE(first);
    expectJiggle(*first, {1, 1});
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Mouse jiggle (+1,+1)")));

    const auto second = awaitAction(desktop);
    ASSERT_TRUE(second);
    expectKey(*second, keyF19);
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key press: Option")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Key: Option")));
    EXPECT_FALSE(desktop.observer().isAnythingHeldDown());
}

TEST(ActionsTest, ScrollPulseWithoutAScrollAxisIsANotchAsideAndBack)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Scroll Pulse")));

    const auto action = awaitAction(desktop);

    ASSERT_TRUE(action);
    EXPECT_THAT(action->kinds(),
                ElementsAre(Kind::buttonPress, Kind::buttonRelease, Kind::buttonPress, Kind::buttonRelease));
    EXPECT_THAT(action->details(), ElementsAre(scrollRight, scrollRight, scrollLeft, scrollLeft));
    EXPECT_GE(action->duration(), 90U);
    EXPECT_LE(action->duration(), 300U);
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Scroll pulse")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Scroll")));
    EXPECT_FALSE(desktop.observer().isAnythingHeldDown());
}

} // namespace endtoend

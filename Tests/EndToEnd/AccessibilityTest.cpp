// The window as assistive technology and the keyboard reach it.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

const QStringList &modes()
{
    static const QStringList names{QStringLiteral("Mouse Jiggle"), QStringLiteral("Key Press"),
                                   QStringLiteral("Mouse + Key"), QStringLiteral("Scroll Pulse")};
    return names;
}

const QStringList &intervals()
{
    static const QStringList names{QStringLiteral("15s"), QStringLiteral("30s"), QStringLiteral("1m"),
                                   QStringLiteral("2m"), QStringLiteral("5m")};
    return names;
}

QStringList buttons(AccessibleProgram &tree)
{
    QStringList names;
    for (const auto &object : tree.everything()) {
        if (object.role == QLatin1String("push button") && object.is(AccessibleState::showing)) {
            names.append(object.name);
        }
    }
    return names;
}

QStringList checkedOnes(AccessibleProgram &tree)
{
    QStringList names;
    for (const auto &object : tree.everything()) {
        if (object.is(AccessibleState::checked)) {
            names.append(object.name);
        }
    }
    return names;
}

} // namespace

class AccessibilityTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isOpen());
        ASSERT_TRUE(stirra.isUp());
    }

    void giveFocus()
    {
        activate(desktop.x(), stirra.window());
        ASSERT_TRUE(eventually([this] { return activeWindow(desktop.x()) == stirra.window(); }));
        ASSERT_TRUE(eventually([this] {
            const auto frame = stirra.tree().find(QStringLiteral("Stirra"), QStringLiteral("frame"));
            constexpr unsigned active = 1;
            return frame && (frame->states >> active & 1U) != 0;
        }));
    }

    [[nodiscard]] bool focusComesTo(const QString &name)
    {
        return eventually([&] { return stirra.tree().focused() == name; });
    }

    [[nodiscard]] bool comesToBeChecked(const QStringList &names)
    {
        return eventually([&] { return checkedOnes(stirra.tree()) == names; });
    }

    Desktop desktop;
    Stirra stirra{desktop};
    XUser user{desktop.x()};
};

TEST_F(AccessibilityTest, EveryVisibleTextIsInTheTreeAsItStandsAndInReadingOrder)
{
    QStringList expected{
        QStringLiteral("Stirra"), QStringLiteral("Stirra"),   QStringLiteral("Anti-sleep utility"),
        QStringLiteral("Start"),  QStringLiteral("Inactive"), QStringLiteral("Click Start to begin"),
        QStringLiteral("Mode")};
    expected << modes() << QStringLiteral("Interval") << intervals()
             << QStringLiteral("Every 30s, Stirra simulates:") << QStringLiteral("None yet")
             << QStringLiteral("0") << QStringLiteral("Actions") << QStringLiteral("0s")
             << QStringLiteral("Uptime") << QStringLiteral("30s") << QStringLiteral("Interval");
    EXPECT_EQ(stirra.tree().texts(), expected);
}

TEST_F(AccessibilityTest, AnActiveWindowSaysSoInTheTree)
{
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));

    for (const char *text : {"Stop", "Active", "Keeping your Mac awake", "Starting...", "Action Log",
                             "1 events", "Stirra activated"}) {
        EXPECT_TRUE(stirra.comesToShow(QString::fromLatin1(text))) << text;
    }
    // Each figure stands for a second only, which a busy machine may miss: any is as good.
    EXPECT_TRUE(eventually([this] {
        const auto texts = stirra.tree().texts();
        return !texts.filter(QStringLiteral("Uptime: ")).isEmpty() &&
               !texts.contains(QStringLiteral("Uptime: 0s"));
    }));
    EXPECT_FALSE(stirra.shows(QStringLiteral("Start")));
    EXPECT_FALSE(stirra.shows(QStringLiteral("Inactive")));

    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Stop")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Stopped")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("2 events")));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Click Start to begin")));
}

TEST_F(AccessibilityTest, ExactlyTheButtonsAreButtonsWithAPressAction)
{
    EXPECT_EQ(buttons(stirra.tree()), QStringList(QStringLiteral("Start")) + modes() + intervals());
    for (const auto &object : stirra.tree().everything()) {
        const bool isButton = object.role == QLatin1String("push button");
        EXPECT_EQ(object.actions.contains(QStringLiteral("Press")), isButton) << qPrintable(object.name);
    }
}

TEST_F(AccessibilityTest, TheChosenModeAndIntervalAreCheckedAndTheCheckMovesWithTheChoice)
{
    EXPECT_EQ(checkedOnes(stirra.tree()), QStringList({modes()[0], intervals()[1]}));

    ASSERT_TRUE(stirra.tree().press(modes()[3]));
    EXPECT_TRUE(comesToBeChecked({modes()[3], intervals()[1]}));
    ASSERT_TRUE(stirra.tree().press(intervals()[4]));
    EXPECT_TRUE(comesToBeChecked({modes()[3], intervals()[4]}));
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Every 5m, Stirra simulates:")));
}

TEST_F(AccessibilityTest, WhileActiveAClickOnAnotherChoiceChangesNothingAndAfterStopItDoes)
{
    const auto click = [this](const QString &name) {
        const auto button = stirra.tree().find(name, QStringLiteral("push button"));
        ASSERT_TRUE(button);
        user.click(stirra.tree().place(*button).center());
    };
    click(QStringLiteral("Start"));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("Active")));
    const QStringList chosen{modes()[0], intervals()[1]};

    click(modes()[1]);
    click(intervals()[2]);
    EXPECT_TRUE(stirra.tree().press(modes()[2]));
    EXPECT_TRUE(stirra.tree().press(intervals()[3]));
    letPass(std::chrono::milliseconds(300));
    EXPECT_EQ(checkedOnes(stirra.tree()), chosen);
    EXPECT_TRUE(stirra.shows(QStringLiteral("Every 30s, Stirra simulates:")));

    click(QStringLiteral("Stop"));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("Inactive")));
    EXPECT_EQ(checkedOnes(stirra.tree()), chosen);
    click(modes()[1]);
    click(intervals()[2]);
    EXPECT_TRUE(comesToBeChecked({modes()[1], intervals()[2]}));
}

TEST_F(AccessibilityTest, TabWalksThroughAllButtonsInReadingOrderAndShiftTabWalksBack)
{
    giveFocus();
    const auto order = QStringList(QStringLiteral("Start")) + modes() + intervals();
    for (const auto &name : order) {
        user.press({XK_Tab});
        EXPECT_TRUE(focusComesTo(name)) << qPrintable(name);
    }
    user.press({XK_Tab}); // round, to the first
    EXPECT_TRUE(focusComesTo(order.first()));
    for (auto name = order.rbegin(); name != order.rend(); ++name) {
        user.press({XK_Shift_L, XK_Tab});
        EXPECT_TRUE(focusComesTo(*name)) << qPrintable(*name);
    }
}

TEST_F(AccessibilityTest, TheWholeWindowIsOperatedFromTheKeyboard)
{
    giveFocus();
    user.press({XK_Tab});
    user.press({XK_Tab});
    user.press({XK_Tab});
    ASSERT_TRUE(focusComesTo(modes()[1]));
    user.press({XK_space});
    EXPECT_TRUE(comesToBeChecked({modes()[1], intervals()[1]}));

    for (int i = 0; i < 5; ++i) {
        user.press({XK_Tab});
    }
    ASSERT_TRUE(focusComesTo(intervals()[2]));
    user.press({XK_Return});
    EXPECT_TRUE(comesToBeChecked({modes()[1], intervals()[2]}));

    for (int i = 0; i < 7; ++i) {
        user.press({XK_Shift_L, XK_Tab});
    }
    ASSERT_TRUE(focusComesTo(QStringLiteral("Start")));
    user.press({XK_Return});
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Active")));
    EXPECT_TRUE(focusComesTo(QStringLiteral("Stop")));
    user.press({XK_space});
    EXPECT_TRUE(stirra.comesToShow(QStringLiteral("Inactive")));
}

TEST_F(AccessibilityTest, ButtonsAreWhereTheTreeSaysTheyAre)
{
    const auto area = clientArea(desktop.x(), stirra.window());
    for (const auto &object : stirra.tree().everything()) {
        if (object.role == QLatin1String("push button")) {
            const auto place = stirra.tree().place(object);
            EXPECT_TRUE(area.contains(place)) << qPrintable(object.name);
            EXPECT_GT(place.width(), 20) << qPrintable(object.name);
            EXPECT_GT(place.height(), 15) << qPrintable(object.name);
        }
    }
}

} // namespace endtoend

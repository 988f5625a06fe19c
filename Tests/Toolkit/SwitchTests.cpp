#include "Tests/Toolkit/ToolkitTest.h"

#include "Tests/Support/Eventually.h"

#include <QAccessible>

namespace toolkit {

namespace {

using testsupport::eventually;

class SwitchTest : public ToolkitTest
{
protected:
    QQuickItem &showSwitch(const char *fields = "")
    {
        const auto text = QByteArray("Switch { width: 180; title: 'Sound'; property int count: 0;"
                                     "onToggled: wanted => { isOn = wanted; count += 1 } ") +
                          fields + "}";
        return show(text.constData());
    }

    [[nodiscard]] QQuickItem &button() const { return item("button"); }
    [[nodiscard]] double knobFromLeft() const { return item("knob").x(); }
    [[nodiscard]] double knobFromRight() const
    {
        return button().width() - item("knob").x() - item("knob").width();
    }

    static bool isOn(const QQuickItem &shown) { return shown.property("isOn").toBool(); }
    static int count(const QQuickItem &shown) { return shown.property("count").toInt(); }
};

TEST_F(SwitchTest, StandsAtTheTrailingEdgeBehindItsTitle)
{
    const auto &shown = showSwitch();
    EXPECT_EQ(button().size(), QSizeF(36, 20));
    EXPECT_EQ(button().mapToItem(&shown, {0, 0}).x(), 180 - 36);
    EXPECT_EQ(item("title").property("text").toString(), QStringLiteral("Sound"));
    EXPECT_EQ(item("title").mapToItem(&shown, {0, 0}).x(), 0);
}

TEST_F(SwitchTest, IsSmallerAndWithoutATitleWhereItIsToldTo)
{
    const auto &shown = show("Switch { title: 'Sound'; isSmall: true; isTitleShown: false }");
    EXPECT_EQ(button().size(), QSizeF(28, 16));
    EXPECT_EQ(shown.implicitWidth(), 28);
    EXPECT_FALSE(item("title").isVisible());
}

TEST_F(SwitchTest, IsToggledByAClickOnItOrItsTitle)
{
    const auto &shown = showSwitch();
    const int middle = static_cast<int>(shown.height() / 2);
    click({180 - 18, middle});
    EXPECT_TRUE(isOn(shown));
    click({10, middle});
    EXPECT_FALSE(isOn(shown));
    EXPECT_EQ(count(shown), 2);
    click({180 - 18, 190});
    EXPECT_EQ(count(shown), 2);
}

TEST_F(SwitchTest, IsReachedAndToggledByKeys)
{
    const auto &shown = showSwitch();
    press(Qt::Key_Tab);
    EXPECT_TRUE(button().hasActiveFocus());
    press(Qt::Key_Space);
    EXPECT_TRUE(isOn(shown));
    press(Qt::Key_Return);
    EXPECT_FALSE(isOn(shown));
    EXPECT_EQ(count(shown), 2);
}

TEST_F(SwitchTest, ShowsWhatItsOwnerSaysAndNotWhatTheUserWants)
{
    const auto &shown = show("Switch { width: 180; title: 'Sound'; property bool wants;"
                             "onToggled: wanted => wants = wanted }");
    button().forceActiveFocus();
    press(Qt::Key_Space);
    EXPECT_TRUE(shown.property("wants").toBool());
    EXPECT_FALSE(isOn(shown));
    EXPECT_FALSE(button().property("isChecked").toBool());
}

TEST_F(SwitchTest, ItsKnobMovesWhereTheUserTogglesIt)
{
    showSwitch();
    EXPECT_EQ(knobFromLeft(), 2);
    button().forceActiveFocus();
    press(Qt::Key_Space);
    EXPECT_LT(knobFromLeft(), 18);
    EXPECT_TRUE(eventually([this] { return knobFromRight() == 2; }));
}

TEST_F(SwitchTest, ItsKnobJumpsWhereMotionIsReduced)
{
    platform.appearance().set({.reducesMotion = true});
    showSwitch();
    button().forceActiveFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(knobFromRight(), 2);
}

TEST_F(SwitchTest, ItsKnobIsAtOnceWhereItsOwnerSays)
{
    auto &shown = showSwitch("isOn: true;");
    EXPECT_EQ(knobFromRight(), 2);
    shown.setProperty("isOn", false);
    EXPECT_EQ(knobFromLeft(), 2);
}

TEST_F(SwitchTest, IsMirroredForWritingFromTheRight)
{
    const auto &shown = showSwitch("LayoutMirroring.enabled: true; LayoutMirroring.childrenInherit: true");
    EXPECT_EQ(button().mapToItem(&shown, {0, 0}).x(), 0);
    EXPECT_EQ(knobFromRight(), 2);
}

TEST_F(SwitchTest, IsInTheAccentColourWhereItIsOn)
{
    platform.appearance().set({false, QColor(200, 40, 0), {}, {}});
    auto &shown = showSwitch();
    const auto color = [this] { return item("track").property("color").value<QColor>(); };
    EXPECT_NE(color(), QColor(200, 40, 0));
    shown.setProperty("isOn", true);
    EXPECT_EQ(color(), QColor(200, 40, 0));
}

TEST_F(SwitchTest, IsOneCheckBoxToAssistiveTechnology)
{
    auto &shown = showSwitch();
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&button());
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Sound"));
    EXPECT_TRUE(accessible->state().checkable);
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_FALSE(accessible->state().checked);
    EXPECT_EQ(accessible->childCount(), 0);
    const auto actions = accessible->actionInterface()->actionNames();
    EXPECT_TRUE(actions.contains(QAccessibleActionInterface::toggleAction()));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(accessible->state().checked);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(accessible->state().checked);
    EXPECT_EQ(count(shown), 2);
    auto *title = QAccessible::queryAccessibleInterface(&item("title"));
    EXPECT_TRUE(!title || title->state().invisible || title->parent() == nullptr ||
                title->parent()->indexOfChild(title) < 0);
    QAccessible::setActive(false);
}

} // namespace

} // namespace toolkit

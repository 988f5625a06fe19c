#include "Tests/Toolkit/ToolkitTest.h"

#include "Tests/Support/QuickItems.h"

#include <QAccessible>
#include <QTest>

#include <algorithm>

namespace toolkit {

namespace {

using testsupport::itemsFrom;

class TabViewTest : public ToolkitTest
{
protected:
    QQuickItem &showTabs()
    {
        return show("TabView { width: 200; height: 200;"
                    "Tab { objectName: 'first'; title: 'One'; symbol: 'clock.fill'; property int count: 0;"
                    "  PlainButton { objectName: 'inside'; text: 'inside'; width: 40; height: 20;"
                    "    onClicked: parent.count += 1 } }"
                    "Tab { objectName: 'second'; title: 'Two' }"
                    "Tab { objectName: 'third'; title: 'Three' } }");
    }

    [[nodiscard]] static int current(const QQuickItem &shown)
    {
        return shown.property("currentIndex").toInt();
    }

    // The tab of the bar with that title.
    [[nodiscard]] QQuickItem &tab(const char *title) const
    {
        for (auto *candidate : itemsFrom(item("bar"))) {
            if (candidate->property("isCurrent").isValid() &&
                candidate->property("text") == QString::fromLatin1(title)) {
                return *candidate;
            }
        }
        ADD_FAILURE() << title;
        return item("bar");
    }

    void clickOn(const QQuickItem &target)
    {
        click(target.mapToScene(QPointF(target.width() / 2, target.height() / 2)).toPoint());
    }
};

TEST_F(TabViewTest, ShowsTheFirstPageBelowABarInTheMiddle)
{
    const auto &shown = showTabs();
    const auto &bar = item("bar");
    EXPECT_NEAR(bar.x() + bar.width() / 2, 100, 0.5);
    EXPECT_EQ(bar.y(), 0);
    EXPECT_TRUE(item("first").isVisible());
    EXPECT_FALSE(item("second").isVisible());
    EXPECT_EQ(item("first").mapRectToItem(&shown, {{}, item("first").size()}),
              QRectF(1, bar.height(), 198, 199 - bar.height()));
}

TEST_F(TabViewTest, HasTheSymbolsOfTheTabsThatHaveOne)
{
    showTabs();
    const auto symbolOf = [this](const char *title) {
        const auto items = itemsFrom(tab(title));
        const auto found = std::ranges::find_if(
            items, [](const auto *candidate) { return candidate->inherits("toolkit::Symbol"); });
        return (*found)->isVisible() ? (*found)->property("name").toString() : QString();
    };
    EXPECT_EQ(symbolOf("One"), QStringLiteral("clock.fill"));
    EXPECT_EQ(symbolOf("Two"), QString());
}

TEST_F(TabViewTest, ShowsThePageWhoseTabIsClickedAndKeepsTheOthers)
{
    const auto &shown = showTabs();
    clickOn(item("inside"));
    clickOn(tab("Three"));
    EXPECT_EQ(current(shown), 2);
    EXPECT_FALSE(item("first").isVisible());
    EXPECT_TRUE(item("third").isVisible());
    EXPECT_EQ(item("third").size(), item("first").size());
    clickOn(tab("One"));
    EXPECT_TRUE(item("first").isVisible());
    EXPECT_EQ(item("first").property("count").toInt(), 1);
}

TEST_F(TabViewTest, IsChosenByTheArrowsAndEnteredByTab)
{
    const auto &shown = showTabs();
    press(Qt::Key_Tab);
    EXPECT_TRUE(tab("One").hasActiveFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(item("inside").hasActiveFocus());
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(tab("One").hasActiveFocus());
    press(Qt::Key_Right);
    EXPECT_EQ(current(shown), 1);
    EXPECT_TRUE(tab("Two").hasActiveFocus());
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(current(shown), 2);
    press(Qt::Key_Left);
    EXPECT_EQ(current(shown), 1);
}

TEST_F(TabViewTest, GoesOnFromWithinAPageByControlAndTab)
{
    const auto &shown = showTabs();
    item("inside").forceActiveFocus();
    QTest::keyClick(&view, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(current(shown), 1);
    EXPECT_TRUE(tab("Two").hasActiveFocus());
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(current(shown), 2);
    EXPECT_TRUE(tab("Three").hasActiveFocus());
}

TEST_F(TabViewTest, TheKeyboardIsNotLostWithAPageThatDisappears)
{
    showTabs();
    item("inside").forceActiveFocus();
    clickOn(tab("Two"));
    EXPECT_TRUE(tab("Two").hasActiveFocus());
}

TEST_F(TabViewTest, AClickTakesNoFocusFromElsewhere)
{
    showTabs();
    clickOn(tab("Two"));
    EXPECT_FALSE(item("bar").hasActiveFocus());
}

TEST_F(TabViewTest, FollowsTheTitlesOfItsPages)
{
    showTabs();
    item("second").setProperty("title", QStringLiteral("Changed"));
    EXPECT_EQ(tab("Changed").property("index").toInt(), 1);
}

TEST_F(TabViewTest, IsAListOfTabsToAssistiveTechnology)
{
    const auto &shown = showTabs();
    QAccessible::setActive(true);
    auto *list = QAccessible::queryAccessibleInterface(&item("bar"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    ASSERT_EQ(list->childCount(), 3);
    auto *second = list->child(1);
    EXPECT_EQ(second->role(), QAccessible::PageTab);
    EXPECT_EQ(second->text(QAccessible::Name), QStringLiteral("Two"));
    EXPECT_TRUE(second->state().selectable);
    EXPECT_FALSE(second->state().selected);
    EXPECT_TRUE(list->child(0)->state().selected);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(current(shown), 1);
    EXPECT_TRUE(second->state().selected);
    QAccessible::setActive(false);
}

} // namespace

} // namespace toolkit

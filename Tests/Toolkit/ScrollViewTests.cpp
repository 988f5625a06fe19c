#include "Tests/Toolkit/ToolkitTest.h"

namespace toolkit {

namespace {

class ScrollViewTest : public ToolkitTest
{
protected:
    QQuickItem &showScrollView()
    {
        auto &scrollView =
            show("ScrollView { width: 200; height: 200; focus: true; Rectangle { width: 100; height: 1000 }"
                 "PlainButton { objectName: 'low'; text: 'low'; y: 900; width: 50; height: 20 }"
                 "PlainButton { objectName: 'high'; text: 'high'; y: 10; width: 50; height: 20 } }");
        scrollView.forceActiveFocus();
        return scrollView;
    }

    [[nodiscard]] static double position(const QQuickItem &scrollView)
    {
        return scrollView.property("contentY").toDouble();
    }
};

TEST_F(ScrollViewTest, ScrollsByKeysAndStopsAtItsEnds)
{
    const auto &scrollView = showScrollView();
    press(Qt::Key_Up);
    EXPECT_EQ(position(scrollView), 0);
    press(Qt::Key_Down);
    EXPECT_EQ(position(scrollView), 40);
    press(Qt::Key_PageDown);
    EXPECT_EQ(position(scrollView), 240);
    press(Qt::Key_End);
    EXPECT_EQ(position(scrollView), 800);
    press(Qt::Key_PageDown);
    EXPECT_EQ(position(scrollView), 800);
    press(Qt::Key_PageUp);
    EXPECT_EQ(position(scrollView), 600);
    press(Qt::Key_Home);
    EXPECT_EQ(position(scrollView), 0);
}

TEST_F(ScrollViewTest, BringsTheFocusedItemIntoView)
{
    const auto &scrollView = showScrollView();
    item("low").forceActiveFocus();
    EXPECT_GE(position(scrollView), 900 + 20 - 200);
    EXPECT_LE(position(scrollView), 800);
    item("high").forceActiveFocus();
    EXPECT_LE(position(scrollView), 10);
    EXPECT_GE(position(scrollView), 0);
}

TEST_F(ScrollViewTest, HasNothingToScrollWhereAllIsInView)
{
    auto &scrollView =
        show("ScrollView { width: 200; height: 200; focus: true; Rectangle { width: 9; height: 90 } }");
    scrollView.forceActiveFocus();
    press(Qt::Key_End);
    EXPECT_EQ(position(scrollView), 0);
}

TEST_F(ScrollViewTest, AShrinkingLabelShrinksToHalfBeforeItIsCut)
{
    const auto &label = show("ShrinkingLabel { width: 60; text: '0123456789'; font.pixelSize: 16 }");
    EXPECT_FALSE(label.property("truncated").toBool());
    EXPECT_LE(label.property("contentWidth").toDouble(), 60);
    const auto &longer =
        show("ShrinkingLabel { width: 60; text: '01234567890123456789'; font.pixelSize: 16 }");
    EXPECT_TRUE(longer.property("truncated").toBool());
    EXPECT_EQ(longer.property("lineCount").toInt(), 1);
}

} // namespace

} // namespace toolkit

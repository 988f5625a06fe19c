#include "Tests/Toolkit/ToolkitTest.h"

#include <QTest>

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

TEST_F(ScrollViewTest, ItsIndicatorShowsWhatPartIsInViewAndIsDragged)
{
    auto &scrollView = show("ScrollView { width: 200; height: 200; isIndicatorShown: true; Rectangle { "
                            "width: 9; height: 1000 } }");
    const auto &indicator = item("indicator");
    EXPECT_TRUE(indicator.isVisible());
    EXPECT_NEAR(indicator.height(), 200 * 0.2 - 4, 0.5);
    EXPECT_EQ(indicator.y(), 2);
    scrollView.setProperty("contentY", 800);
    EXPECT_NEAR(indicator.y() + indicator.height(), 198, 0.5);

    const QPoint middle(195, 180);
    QTest::mousePress(&view, Qt::LeftButton, {}, middle);
    for (int y = middle.y(); y >= 100; y -= 5) {
        QTest::mouseMove(&view, {middle.x(), y});
    }
    EXPECT_NEAR(position(scrollView), 800 - 80 * 5, 40); // but for where the drag began
    QTest::mouseMove(&view, {middle.x(), -500});
    EXPECT_EQ(position(scrollView), 0);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {middle.x(), -500});
}

TEST_F(ScrollViewTest, HasNoIndicatorWhereItIsNotWantedOrNothingIsHidden)
{
    showScrollView();
    EXPECT_FALSE(item("indicator").isVisible());
    show(
        "ScrollView { width: 200; height: 200; isIndicatorShown: true; Rectangle { width: 9; height: 90 } }");
    EXPECT_FALSE(item("indicator").isVisible());
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

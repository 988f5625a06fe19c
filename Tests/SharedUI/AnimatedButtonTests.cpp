#include "Tests/SharedUI/SharedUITest.h"

#include "Tests/Support/Eventually.h"

#include <QAccessible>
#include <QFont>
#include <QTest>

#include <algorithm>

namespace sharedui {

namespace {

using testsupport::eventually;

class AnimatedButtonTest : public SharedUITest
{
protected:
    QQuickItem &showButton(const QByteArray &fields = "icon: 'play.fill';")
    {
        return show("AnimatedButton { id: button; property int count: 0; x: 30; y: 60; title: 'Go on';"
                    "action: () => button.count += 1; " +
                    fields + "}");
    }

    [[nodiscard]] int count() const { return shown().property("count").toInt(); }
    [[nodiscard]] bool isPressed() const { return shown().property("isPressed").toBool(); }
    [[nodiscard]] double scale() const { return shown().scale(); }
    [[nodiscard]] QPoint middle() const
    {
        return shown().mapRectToScene(shown().boundingRect()).center().toPoint();
    }

    void press() { QTest::mousePress(&view, Qt::LeftButton, {}, middle()); }
    void release(const QPoint &where) { QTest::mouseRelease(&view, Qt::LeftButton, {}, where); }
};

TEST_F(AnimatedButtonTest, IsASymbolAndATitleWithItsPadding)
{
    const auto &button = showButton();
    const auto &icon = item("icon");
    const auto &title = item("title");
    EXPECT_EQ(icon.property("name").toString(), QStringLiteral("play.fill"));
    EXPECT_EQ(icon.property("size").toDouble(), 14);
    EXPECT_EQ(icon.property("weight").toInt(), QFont::DemiBold);
    EXPECT_EQ(title.property("font").value<QFont>().pixelSize(), 14);
    EXPECT_EQ(title.property("font").value<QFont>().weight(), QFont::DemiBold);
    for (const auto *part : {&icon, &title}) {
        EXPECT_EQ(part->property("color").value<QColor>(), QColor(Qt::white));
    }
    EXPECT_EQ(icon.mapToItem(&button, {0, 0}).x(), 20);
    EXPECT_EQ(title.mapToItem(&button, {0, 0}).x(), 20 + icon.width() + 8);
    EXPECT_EQ(button.width(), 20 + icon.width() + 8 + title.width() + 20);
    EXPECT_EQ(button.height(), std::max(icon.height(), title.height()) + 2 * 12);
}

TEST_F(AnimatedButtonTest, WithoutASymbolItsTitleHasTheSamePadding)
{
    const auto &button = showButton({});
    const auto &title = item("title");
    EXPECT_FALSE(item("icon").isVisible());
    EXPECT_EQ(title.mapToItem(&button, {0, 0}).x(), 20);
    EXPECT_EQ(title.mapToItem(&button, {0, 0}).y(), 12);
    EXPECT_EQ(button.size(), title.size() + QSizeF(40, 24));
}

TEST_F(AnimatedButtonTest, IsFilledWithTheAccentFromTopToBottom)
{
    platform.appearance().set({false, QColor(200, 40, 0), {}, {}});
    const auto &button = showButton();
    const auto image = picture();
    const double left = button.x() + 8;
    const double height = button.height();
    const double right = button.x() + button.width() - 8;
    EXPECT_NEAR(colorAt(image, left, button.y() + 2).green(), 40, 8);
    // At 80 % over white.
    EXPECT_NEAR(colorAt(image, left, button.y() + height - 2).green(), 40 + 0.2 * 215, 8);
    EXPECT_EQ(colorAt(image, left, button.y() + height / 2), colorAt(image, right, button.y() + height / 2));
    EXPECT_EQ(colorAt(image, button.x() - 29, button.y()), QColor(Qt::white));
}

TEST_F(AnimatedButtonTest, ItsShadowIsOfTheAccentAndLower)
{
    platform.appearance().set({false, QColor(200, 40, 0), {}, {}});
    const auto &button = showButton();
    const auto image = picture();
    const double middle = button.x() + button.width() / 2;
    const auto below = colorAt(image, middle, button.y() + button.height() + 4);
    // Half of 30 % where the shadow's own edge is.
    EXPECT_NEAR(below.blue(), 255 * (1 - 0.15), 5);
    EXPECT_NEAR(below.red(), 255 - 55 * 0.15, 4);
    EXPECT_GT(colorAt(image, middle, button.y() - 5).blue(), below.blue() + 10);
}

TEST_F(AnimatedButtonTest, DoesNotSpringWhenItAppears)
{
    make("AnimatedButton { title: ''; action: () => {} }");
    EXPECT_EQ(scale(), 1);
    place();
    EXPECT_EQ(scale(), 1);
    EXPECT_FALSE(isPressed());
}

TEST_F(AnimatedButtonTest, StaysAt95PercentWhileItIsHeldAndReturns)
{
    showButton();
    const auto where = middle();
    press();
    EXPECT_TRUE(isPressed());
    EXPECT_TRUE(eventually([this] { return scale() == 0.95; }));
    testsupport::letPass(std::chrono::milliseconds(50));
    EXPECT_EQ(scale(), 0.95);
    EXPECT_EQ(count(), 0);
    release(where);
    EXPECT_FALSE(isPressed());
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(eventually([this] { return scale() == 1; }));
}

TEST_F(AnimatedButtonTest, KeepsItsSizeWhereTheUserWantsLessMotion)
{
    platform.appearance().prefer({.reducesMotion = true});
    showButton();
    const auto where = middle();
    press();
    EXPECT_TRUE(isPressed());
    testsupport::letPass(std::chrono::milliseconds(50));
    EXPECT_EQ(scale(), 1);
    release(where);
    EXPECT_EQ(count(), 1);
}

TEST_F(AnimatedButtonTest, SpringsBeyondItsSizeOnItsWay)
{
    const auto &button = showButton();
    double smallest = 1;
    double largest = 0;
    QObject::connect(&button, &QQuickItem::scaleChanged, &button, [&] {
        smallest = std::min(smallest, scale());
        largest = std::max(largest, scale());
    });
    press();
    ASSERT_TRUE(eventually([this] { return scale() == 0.95; }));
    release(middle());
    ASSERT_TRUE(eventually([this] { return scale() == 1; }));
    // A swing goes a tenth of the way too far.
    EXPECT_GT(smallest, 0.95 - 0.0049);
    EXPECT_LT(largest, 1 + 0.0049);
    EXPECT_LT(smallest, 0.95);
    EXPECT_GT(largest, 1);
}

TEST_F(AnimatedButtonTest, IsPressedUntilThePointerIsReleasedWhereverThatIs)
{
    showButton();
    press();
    QTest::mouseMove(&view, {190, 190});
    EXPECT_TRUE(isPressed());
    EXPECT_TRUE(eventually([this] { return scale() == 0.95; }));
    release({190, 190});
    EXPECT_FALSE(isPressed());
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(eventually([this] { return scale() == 1; }));
}

TEST_F(AnimatedButtonTest, RunsItsActionOncePerClickHoweverFast)
{
    showButton();
    for (int i = 1; i <= 5; ++i) {
        QTest::mouseClick(&view, Qt::LeftButton, {}, middle());
        EXPECT_EQ(count(), i);
    }
    EXPECT_TRUE(eventually([this] { return scale() == 1; }));
}

TEST_F(AnimatedButtonTest, IsNotPressedByOtherButtonsOrElsewhere)
{
    showButton();
    QTest::mousePress(&view, Qt::RightButton, {}, middle());
    EXPECT_FALSE(isPressed());
    QTest::mouseRelease(&view, Qt::RightButton, {}, middle());
    QTest::mouseClick(&view, Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(scale(), 1);
}

TEST_F(AnimatedButtonTest, IsReachedAndPressedByKeys)
{
    showButton();
    QTest::keyClick(&view, Qt::Key_Tab);
    EXPECT_TRUE(item("button").hasActiveFocus());
    int expected = 0;
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&view, key);
        EXPECT_EQ(count(), ++expected);
    }
}

TEST_F(AnimatedButtonTest, IsOneButtonToAssistiveTechnology)
{
    showButton();
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&item("button"));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Go on"));
    EXPECT_EQ(accessible->childCount(), 0);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(count(), 1);
    QAccessible::setActive(false);
}

TEST_F(AnimatedButtonTest, CausesNoFrameAtRest)
{
    showButton();
    QTest::mouseClick(&view, Qt::LeftButton, {}, middle());
    ASSERT_TRUE(eventually([this] { return scale() == 1; }));
    testsupport::letPass(std::chrono::milliseconds(100));
    frames = 0;
    testsupport::letPass(std::chrono::milliseconds(300));
    EXPECT_EQ(frames, 0);
}

} // namespace

} // namespace sharedui

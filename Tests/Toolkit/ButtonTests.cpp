#include "Tests/Toolkit/ToolkitTest.h"

#include <QAccessible>
#include <QTest>

namespace toolkit {

namespace {

class ButtonTest : public ToolkitTest
{
protected:
    QQuickItem &showButton()
    {
        return show(
            "PlainButton { text: 'Go'; width: 80; height: 30; isCheckable: true; property int count: 0;"
            "onClicked: count += 1; Label { text: 'Go'; Accessible.ignored: true } }");
    }

    [[nodiscard]] static int clicks(const QQuickItem &button) { return button.property("count").toInt(); }
};

TEST_F(ButtonTest, IsPressedByPointer)
{
    const auto &button = showButton();
    click({40, 15});
    EXPECT_EQ(clicks(button), 1);
    click({150, 150});
    EXPECT_EQ(clicks(button), 1);
}

TEST_F(ButtonTest, APressThatLeavesTheButtonIsNone)
{
    const auto &button = showButton();
    QTest::mousePress(&view, Qt::LeftButton, {}, {40, 15});
    EXPECT_TRUE(button.property("isPressed").toBool());
    QTest::mouseMove(&view, {150, 150});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {150, 150});
    EXPECT_EQ(clicks(button), 0);
    EXPECT_FALSE(button.property("isPressed").toBool());
}

TEST_F(ButtonTest, IsPressedBySpaceReturnAndEnterOncePerPress)
{
    auto &button = showButton();
    button.forceActiveFocus();
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    EXPECT_EQ(clicks(button), 3);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" "), true);
    QCoreApplication::sendEvent(&view, &repeat);
    EXPECT_EQ(clicks(button), 3);
}

TEST_F(ButtonTest, TheRingIsShownWithTheFocusOnly)
{
    auto &button = showButton();
    const auto without = picture();
    button.forceActiveFocus();
    EXPECT_NE(picture(), without);
}

TEST_F(ButtonTest, IsAButtonToAssistiveTechnology)
{
    auto &button = showButton();
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&button);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Go"));
    EXPECT_TRUE(accessible->state().checkable);
    EXPECT_FALSE(accessible->state().checked);
    button.setProperty("isChecked", true);
    EXPECT_TRUE(accessible->state().checked);
    ASSERT_TRUE(accessible->actionInterface());
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks(button), 1);
    QAccessible::setActive(false);
}

TEST_F(ButtonTest, ALabelIsATextToAssistiveTechnology)
{
    auto &label = show("Label { text: '1 events' }");
    QAccessible::setActive(true);
    auto *accessible = QAccessible::queryAccessibleInterface(&label);
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("1 events"));
    QAccessible::setActive(false);
}

} // namespace

} // namespace toolkit

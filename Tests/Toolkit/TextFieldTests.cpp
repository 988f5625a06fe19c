#include "Tests/Toolkit/ToolkitTest.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace toolkit {

namespace {

class TextFieldTest : public ToolkitTest
{
protected:
    // Which keeps what the user makes of it.
    QQuickItem &showField()
    {
        return show("TextField { title: 'Name'; text: 'ab'; placeholder: 'Nobody';"
                    "onEdited: wanted => text = wanted }");
    }

    [[nodiscard]] QString text() const { return shown().property("text").toString(); }
    [[nodiscard]] QString shownText() const { return item("input").property("text").toString(); }
    void type(const char *text)
    {
        for (; *text != '\0'; ++text) {
            QTest::keyClick(&view, *text);
        }
    }
};

TEST_F(TextFieldTest, IsReachedByTabAndTellsOfEachEdit)
{
    auto &field = showField();
    QSignalSpy edits(&field, SIGNAL(edited(QString)));
    press(Qt::Key_Tab);
    EXPECT_TRUE(field.hasActiveFocus());
    press(Qt::Key_End);
    type("cd");
    EXPECT_EQ(text(), QStringLiteral("abcd"));
    press(Qt::Key_Backspace);
    EXPECT_EQ(text(), QStringLiteral("abc"));
    EXPECT_EQ(edits.count(), 3);
}

TEST_F(TextFieldTest, IsEditedWhereItIsClicked)
{
    showField();
    click(shown().mapToScene({2, shown().height() / 2}).toPoint());
    type("x");
    EXPECT_EQ(text(), QStringLiteral("xab"));
}

TEST_F(TextFieldTest, ShowsWhatTheOwnerSaysWithoutTellingOfIt)
{
    auto &field = showField();
    QSignalSpy edits(&field, SIGNAL(edited(QString)));
    field.setProperty("text", QStringLiteral("Other"));
    EXPECT_EQ(shownText(), QStringLiteral("Other"));
    EXPECT_EQ(edits.count(), 0);
}

TEST_F(TextFieldTest, ShowsAPlaceholderWhileItIsEmpty)
{
    auto &field = showField();
    EXPECT_FALSE(item("placeholder").isVisible());
    field.setProperty("text", QString());
    EXPECT_TRUE(item("placeholder").isVisible());
}

TEST_F(TextFieldTest, IsSubmittedByReturn)
{
    auto &field = showField();
    QSignalSpy submissions(&field, SIGNAL(submitted()));
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(submissions.count(), 1);
}

TEST_F(TextFieldTest, IsAnEditableTextToAssistiveTechnology)
{
    showField();
    auto *accessible = QAccessible::queryAccessibleInterface(&item("input"));
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::EditableText);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Name"));
    EXPECT_EQ(accessible->text(QAccessible::Value), QStringLiteral("ab"));
}

} // namespace

} // namespace toolkit

// Text that is typed on X11 arrives whole in programs of several toolkits and in a terminal.

#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"

#include <csignal>

namespace sharedcore {

using testing::Eq;

TEST_F(XTypingTest, ATextArrivesWholeInAGtkEntry)
{
    const auto entry = openGtkEntry();
    ASSERT_TRUE(entry->hasFocus());
    EXPECT_EQ(type(QByteArray(manyAlphabets) + '\n'), 0);
    EXPECT_THAT(entry->result(), Eq(QByteArray(manyAlphabets) + '\n'));
}

TEST_F(XTypingTest, ATextArrivesWholeInAQtField)
{
    const auto field = openQtField();
    ASSERT_TRUE(field->hasFocus());
    EXPECT_EQ(type(QByteArray(manyAlphabets) + '\n'), 0);
    EXPECT_THAT(field->result(), Eq(QByteArray(manyAlphabets) + '\n'));
}

TEST_F(XTypingTest, ATextArrivesWholeInATerminalWithItsLinesAndTabs)
{
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    EXPECT_EQ(type(QByteArray(manyAlphabets) + "\n\tsecond\r\nline"), 0);
    const auto expected = QByteArray(manyAlphabets) + "\r\tsecond\rline"; // Return is a carriage return there
    EXPECT_TRUE(terminalComesToHave(expected));
    EXPECT_THAT(typedIntoTerminal(), Eq(expected));
}

// Some launchers ignore the ends of their children, and what they start inherits that.
TEST_F(XTypingTest, AProgramThatIgnoresTheEndsOfItsChildrenTypes)
{
    const auto before = keymap();
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    testsupport::ChildProcess typing(
        QStringLiteral("env"),
        {QStringLiteral("--ignore-signal=CHLD"), QStringLiteral(TYPING_PROGRAM), QStringLiteral("ab")},
        runtime_.environment());
    EXPECT_EQ(typing.waitForExit(), 0);
    EXPECT_TRUE(terminalComesToHave("ab"));
    EXPECT_THAT(typedIntoTerminal(), Eq("ab"));
    EXPECT_EQ(keymap(), before);
}

// A user of another layout than that of the text.
TEST_F(XTypingTest, TheLayoutDoesNotMatter)
{
    testsupport::ChildProcess layout(QStringLiteral("setxkbmap"),
                                     {QStringLiteral("fr,ru"), QStringLiteral("bepo,")},
                                     runtime_.environment());
    ASSERT_EQ(layout.waitForExit(), 0);
    const auto before = keymap();
    const auto field = openQtField();
    ASSERT_TRUE(field->hasFocus());
    EXPECT_EQ(type("azerty QWERTY 1!\n"), 0);
    EXPECT_THAT(field->result(), Eq("azerty QWERTY 1!\n"));
    EXPECT_EQ(keymap(), before);
}

TEST_F(XTypingTest, WhatHasNoKeyIsLeftOutAndToldOf)
{
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    EXPECT_EQ(type("a\x1b\x07"
                   "b"),
              1);
    EXPECT_TRUE(terminalComesToHave("ab"));
    EXPECT_THAT(typedIntoTerminal(), Eq("ab"));
}

// The field reads what is typed in the loop that makes the call, and more characters than keys can be lent.
TEST_F(XTypingTest, AProgramTypesIntoItselfFromItsMainThread)
{
    auto environment = runtime_.environment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    const auto text = QByteArray("abcdefghijklmnopqrstuvwxyz") + manyAlphabets;
    FocusedProgram program(*x_, QStringLiteral("Own field"), QStringLiteral(OWN_FIELD_PROGRAM),
                           {QString::fromUtf8(text), QStringLiteral("-\u6f22")}, environment);
    EXPECT_THAT(program.result(), Eq("1\n1\n" + text + "-\u6f22\n"));
}

// It may have read nothing of the text by the time that the keys have lost its characters again.
TEST_F(XTypingTest, AProgramThatDoesNotReadIsToldOf)
{
    const auto entry = openGtkEntry();
    ASSERT_TRUE(entry->hasFocus());
    entry->process().sendSignal(SIGSTOP);
    EXPECT_EQ(type("Hello"), 1);
    EXPECT_EQ(type("abcdefghijklmnopqrstuvwxyz"), 1) << "in the midst of the text";
    entry->process().sendSignal(SIGCONT);
}

TEST_F(XTypingTest, WithoutADisplayNothingIsTypedAndTheAnswerSaysSo)
{
    runtime_.environment().insert(QStringLiteral("DISPLAY"), QStringLiteral(":64321"));
    EXPECT_EQ(type("ab"), 1);
}

TEST_F(XTypingTest, TheEnvironmentCanForbidIt)
{
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    for (const auto *way : {"none", "uinput", "wlroots"}) {
        runtime_.environment().insert(QStringLiteral("STIRRA_INPUT_BACKEND"), QString::fromLatin1(way));
        EXPECT_EQ(type("ab"), 1) << way;
    }
    EXPECT_EQ(typedIntoTerminal(), QByteArray());
}

} // namespace sharedcore

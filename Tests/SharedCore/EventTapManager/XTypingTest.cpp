// Text that is typed on X11 arrives whole in programs of several toolkits and in a terminal.

#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <algorithm>
#include <csignal>
#include <span>

namespace sharedcore {

using testing::Eq;
using testing::HasSubstr;
using testsupport::eventually;
using testsupport::xAnswer;

namespace {

// Windows that are never seen, such as programs make that wait for something.
std::ptrdiff_t invisibleWindowCount(const testsupport::XClient &x)
{
    const auto tree = xAnswer(xcb_query_tree_reply, x.get(), xcb_query_tree(x.get(), x.root()));
    const std::span children(xcb_query_tree_children(tree.get()), tree->children_len);
    return std::ranges::count_if(children, [&x](xcb_window_t window) {
        const auto attributes =
            xAnswer(xcb_get_window_attributes_reply, x.get(), xcb_get_window_attributes(x.get(), window));
        return attributes && attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY;
    });
}

} // namespace

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

// It reads nothing any more then. Another program waits as long for its turn as this one could for its own
// window, and had begun before.
TEST_F(XTypingTest, AProgramThatEndsWhileItTypesIntoItselfDoesNotWaitForItself)
{
    const auto before = keymap();
    auto environment = runtime_.environment();
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    const QString title = QStringLiteral("Own field");
    FocusedProgram program(*x_, title, QStringLiteral(OWN_FIELD_PROGRAM),
                           {QString::fromUtf8(QByteArray("abcdef").repeated(1000)), QString()}, environment);
    ASSERT_TRUE(eventually([&] { return keymap() != before; }));
    const auto count = invisibleWindowCount(*x_);
    testsupport::ChildProcess other(QStringLiteral(TYPING_PROGRAM), {QStringLiteral("x")},
                                    runtime_.environment());
    ASSERT_TRUE(eventually([&] { return invisibleWindowCount(*x_) > count; }));
    testsupport::close(*x_, testsupport::windowsTitled(*x_, title).at(0));
    EXPECT_THAT(program.result().toStdString(), HasSubstr("0\n")) << "not all of it was typed";
    EXPECT_EQ(other.waitForExit(), 0);
    EXPECT_EQ(keymap(), before);
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

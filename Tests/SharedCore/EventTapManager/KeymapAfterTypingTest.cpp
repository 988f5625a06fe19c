// The keymap after a text is the keymap before it, bit by bit, however the typing ends.

#include "Tests/SharedCore/EventTapManager/TypedTextTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XRelay.h"

#include <csignal>

namespace sharedcore {

using testing::HasSubstr;
using testing::Optional;
using testing::StartsWith;
using testsupport::ChildProcess;
using testsupport::eventually;

class KeymapAfterTypingTest : public XTypingTest
{
protected:
    void SetUp() override
    {
        XTypingTest::SetUp();
        before_ = keymap();
        ASSERT_GT(before_.size(), 10'000);
    }

    [[nodiscard]] std::unique_ptr<ChildProcess> startTyping(const QByteArray &text) const
    {
        return std::make_unique<ChildProcess>(QStringLiteral(TYPING_PROGRAM),
                                              QStringList(QString::fromUtf8(text)), runtime_.environment());
    }

    QByteArray before_;
};

TEST_F(KeymapAfterTypingTest, WhenTheCallReturnsItIsAsBefore)
{
    EXPECT_EQ(type(manyAlphabets), 0);
    EXPECT_EQ(keymap(), before_);
    EXPECT_EQ(type("once more"), 0);
    EXPECT_EQ(keymap(), before_);
}

// Half-way through the text, at another place each time, by a signal that cannot be caught and by one that
// ends all of the process's group.
TEST_F(KeymapAfterTypingTest, AKilledProgramLeavesItAsBeforeAndNoWrongCharacter)
{
    const auto text = QByteArray(manyAlphabets).repeated(20);
    for (const qsizetype length : {1, 40, 90}) {
        const auto terminal = openTerminal();
        ASSERT_TRUE(terminal->hasFocus());
        const auto typing = startTyping(text);
        ASSERT_TRUE(eventually([&] { return typedIntoTerminal().size() >= length; }));
        EXPECT_NE(keymap(), before_);
        typing->sendSignal(SIGKILL);
        ASSERT_THAT(typing->waitForExit(), Optional(-SIGKILL));
        EXPECT_TRUE(eventually([this] { return keymap() == before_; }));
        EXPECT_THAT(text.toStdString(), StartsWith(typedIntoTerminal().toStdString()));
    }
}

TEST_F(KeymapAfterTypingTest, AProgramThatIsEndedWithItsGroupLeavesItAsBefore)
{
    const auto typing = startTyping(QByteArray("abcdef").repeated(500));
    ASSERT_TRUE(eventually([this] { return keymap() != before_; }));
    kill(-typing->pid(), SIGTERM);
    ASSERT_THAT(typing->waitForExit(), Optional(-SIGTERM));
    EXPECT_TRUE(eventually([this] { return keymap() == before_; }));
}

// The server and the typing program live on, and what connects them does not.
TEST_F(KeymapAfterTypingTest, AConnectionThatBreaksWhileTypingLeavesItAsBefore)
{
    testsupport::XRelay relay(server_->display());
    runtime_.environment().insert(QStringLiteral("DISPLAY"), relay.display());
    const auto typing = startTyping(QByteArray("abcdef").repeated(500));
    ASSERT_TRUE(eventually([this] { return keymap() != before_; }));
    relay.loseFirstClient();
    EXPECT_EQ(typing->waitForExit(), 1);
    EXPECT_TRUE(eventually([this] { return keymap() == before_; }));
}

// What somebody else does to the keymap meanwhile stays.
TEST_F(KeymapAfterTypingTest, AKeymapThatIsChangedMeanwhileIsLeftToWhoChangedIt)
{
    const auto typing = startTyping(QByteArray("abcdef").repeated(100));
    ASSERT_TRUE(eventually([this] { return keymap() != before_; }));
    ChildProcess change(QStringLiteral("setxkbmap"), {QStringLiteral("de")}, runtime_.environment());
    ASSERT_EQ(change.waitForExit(), 0);
    ChildProcess free(QStringLiteral("xmodmap"), {QStringLiteral("-e"), QStringLiteral("keycode 230 = F35")},
                      runtime_.environment());
    ASSERT_EQ(free.waitForExit(), 0);
    EXPECT_TRUE(typing->waitForExit(std::chrono::seconds(60)).has_value());
    const auto after = keymap();
    ChildProcess again(QStringLiteral("setxkbmap"), {QStringLiteral("de")}, runtime_.environment());
    ASSERT_EQ(again.waitForExit(), 0);
    ChildProcess freeAgain(QStringLiteral("xmodmap"),
                           {QStringLiteral("-e"), QStringLiteral("keycode 230 = F35")},
                           runtime_.environment());
    ASSERT_EQ(freeAgain.waitForExit(), 0);
    EXPECT_EQ(after, keymap());
}

// The same where the program is killed after that.
TEST_F(KeymapAfterTypingTest, AKilledProgramLeavesAChangedKeymapToWhoChangedIt)
{
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    const auto typing = startTyping(QByteArray("abcdef").repeated(500));
    ASSERT_TRUE(eventually([this] { return !typedIntoTerminal().isEmpty(); }));
    ChildProcess change(QStringLiteral("xmodmap"),
                        {QStringLiteral("-e"), QStringLiteral("keycode 230 = F35")}, runtime_.environment());
    ASSERT_EQ(change.waitForExit(), 0);
    const auto typed = typedIntoTerminal().size();
    ASSERT_TRUE(eventually([&] { return typedIntoTerminal().size() >= typed + 3; }));
    typing->sendSignal(SIGKILL);
    ASSERT_THAT(typing->waitForExit(), Optional(-SIGKILL));
    EXPECT_EQ(type("x"), 0) << "comes after the keymap has been put right";
    ChildProcess table(QStringLiteral("xmodmap"), {QStringLiteral("-pke")}, runtime_.environment());
    ASSERT_EQ(table.waitForExit(), 0);
    EXPECT_THAT(table.standardOutput().toStdString(), HasSubstr("keycode 230 = F35"));
}

TEST_F(KeymapAfterTypingTest, TwoProgramsTypeOneAfterTheOther)
{
    const auto terminal = openTerminal();
    ASSERT_TRUE(terminal->hasFocus());
    const auto first = QByteArray("abcdefgh").repeated(10);
    const auto typing = startTyping(first);
    ASSERT_TRUE(eventually([this] { return !typedIntoTerminal().isEmpty(); }));
    EXPECT_EQ(type("XYZ"), 0);
    EXPECT_EQ(typing->waitForExit(std::chrono::seconds(60)), 0);
    EXPECT_TRUE(terminalComesToHave(first + "XYZ"));
    EXPECT_EQ(typedIntoTerminal(), first + "XYZ");
    EXPECT_EQ(keymap(), before_);
}

} // namespace sharedcore

// What becomes of a text before the system gets it.

#include "SharedCore/EventTapManager/TextTyping.h"

#include "Tests/Fakes/RecordingTyping.h"

#include <QCoreApplication>
#include <QTimer>

#include <gmock/gmock.h>

#include <thread>

namespace sharedcore {

namespace {

using fakes::RecordingTyping;
using std::chrono::microseconds;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Event = RecordingTyping::Event;

} // namespace

class TextTypingTest : public testing::Test
{
protected:
    bool type(std::string_view text)
    {
        return typeText(text, typing, [this](microseconds pause) {
            pauses.push_back(pause);
            postedAtPause.push_back(typing.posted.size());
        });
    }

    // The characters whose keys went down, each of which came up next.
    [[nodiscard]] std::vector<std::u16string> characters() const
    {
        std::vector<std::u16string> list;
        for (std::size_t i = 0; i + 1 < typing.posted.size(); i += 2) {
            EXPECT_TRUE(typing.posted[i].isDown);
            EXPECT_FALSE(typing.posted[i + 1].isDown);
            EXPECT_EQ(typing.posted[i].units, typing.posted[i + 1].units);
            list.push_back(typing.posted[i].units);
        }
        return list;
    }

    RecordingTyping typing;
    std::vector<microseconds> pauses;
    std::vector<std::size_t> postedAtPause;
};

TEST_F(TextTypingTest, EachKeyGoesDownAndUpAndTenMillisecondsPass)
{
    EXPECT_TRUE(type("ab"));
    EXPECT_THAT(typing.posted,
                ElementsAre(Event{u"a", true}, Event{u"a", false}, Event{u"b", true}, Event{u"b", false}));
    EXPECT_THAT(pauses, ElementsAre(microseconds(10'000), microseconds(10'000)));
    EXPECT_THAT(postedAtPause, ElementsAre(2, 4));
}

TEST_F(TextTypingTest, TheWayIsOpenedOnceWithTheWholeTextAndClosedAfterIt)
{
    EXPECT_TRUE(type("grün"));
    EXPECT_THAT(typing.opened, ElementsAre(std::u16string(u"grün")));
    EXPECT_EQ(typing.closedCount, 1);
}

TEST_F(TextTypingTest, ACharacterOfSeveralUnitsIsOneKey)
{
    EXPECT_TRUE(type("x👩‍👩‍👧‍👦e\u0301🇩🇪👍🏽\r\n"));
    EXPECT_THAT(characters(),
                ElementsAre(u"x", u"👩‍👩‍👧‍👦", u"e\u0301", u"🇩🇪", u"👍🏽", u"\r\n"));
    EXPECT_THAT(pauses, SizeIs(6));
}

TEST_F(TextTypingTest, ATextWithoutCharactersIsWhole)
{
    EXPECT_TRUE(type(""));
    EXPECT_THAT(typing.opened, IsEmpty());
    EXPECT_THAT(pauses, IsEmpty());
}

TEST_F(TextTypingTest, WithoutAWayNothingIsDoneAndTheAnswerSaysSo)
{
    typing.hasWay = false;
    EXPECT_FALSE(type("ab"));
    EXPECT_THAT(typing.posted, IsEmpty());
    EXPECT_THAT(pauses, IsEmpty());
}

TEST_F(TextTypingTest, ACharacterThatCannotBeTypedIsLeftOutAndToldOf)
{
    typing.cannotType = u"b";
    EXPECT_FALSE(type("abc"));
    EXPECT_THAT(characters(), ElementsAre(u"a", u"c"));
    EXPECT_THAT(pauses, SizeIs(3));
}

TEST_F(TextTypingTest, WhenTheWayIsLostTheRestIsNotWaitedFor)
{
    const bool isWhole = typeText("abcdef", typing, [this](microseconds pause) {
        pauses.push_back(pause);
        typing.isLost = pauses.size() == 2;
    });
    EXPECT_FALSE(isWhole);
    EXPECT_THAT(characters(), ElementsAre(u"a", u"b"));
    EXPECT_THAT(pauses, SizeIs(2));
}

TEST_F(TextTypingTest, WhatIsNotReadInTheEndIsToldOf)
{
    typing.isRead = false;
    EXPECT_FALSE(type("ab"));
    EXPECT_THAT(characters(), ElementsAre(u"a", u"b"));
}

TEST_F(TextTypingTest, TheEventLoopGoesOnWhereThisProgramHasTheFocus)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    typing.isOwnWindow = true;
    bool isHandled = false;
    QTimer::singleShot(0, [&isHandled] { isHandled = true; });
    EXPECT_TRUE(typeText("ab", typing, [](microseconds) {}));
    EXPECT_TRUE(isHandled);
    EXPECT_THAT(characters(), ElementsAre(u"a", u"b"));
    typing.isOwnWindow = false;
    isHandled = false;
    QTimer::singleShot(0, [&isHandled] { isHandled = true; });
    EXPECT_TRUE(typeText("ab", typing, [](microseconds) {}));
    EXPECT_FALSE(isHandled) << "others read by themselves";
}

TEST_F(TextTypingTest, TheEndOfTheApplicationEndsATextIntoItsOwnWindow)
{
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    typing.isOwnWindow = true;
    const std::string text(1'000'000, 'a');
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, &QCoreApplication::quit);
        EXPECT_FALSE(typeText(text, typing, [](microseconds) { std::this_thread::yield(); }));
    });
    QCoreApplication::exec();
    EXPECT_LT(typing.posted.size(), text.size());
}

// The thread that would read it waits for the text's end.
TEST_F(TextTypingTest, TheEndOfTheApplicationEndsTheWaitForItsOwnWindow)
{
    int argumentCount = 0;
    QCoreApplication application(argumentCount, nullptr);
    typing.isOwnWindow = true;
    typing.whenUnread = [&] {
        QMetaObject::invokeMethod(
            &application, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
    };
    QTimer::singleShot(0, [&] { EXPECT_FALSE(type("ab")); });
    QCoreApplication::exec();
    EXPECT_EQ(typing.closedCount, 1);
}

TEST_F(TextTypingTest, TheEndOfTheApplicationEndsTheWaitForAnotherText)
{
    int argumentCount = 0;
    QCoreApplication application(argumentCount, nullptr);
    typing.isOwnWindow = true;
    const auto typeSecond = [&] {
        QTimer::singleShot(0, [] { QCoreApplication::exit(); });
        EXPECT_FALSE(type("second"));
    };
    typing.whenUnread = [&] { QMetaObject::invokeMethod(&application, typeSecond, Qt::QueuedConnection); };
    QTimer::singleShot(0, [&] { EXPECT_FALSE(type("first")); });
    QCoreApplication::exec();
    EXPECT_EQ(typing.closedCount, 1);
}

TEST_F(TextTypingTest, WhatIsNoTextIsTypedAsItsReplacement)
{
    EXPECT_TRUE(type("a\xff\xc3"));
    EXPECT_THAT(characters(), ElementsAre(u"a", u"\ufffd", u"\ufffd"));
}

TEST_F(TextTypingTest, TextsOfSeveralThreadsAreTypedOneAfterTheOther)
{
    std::vector<std::jthread> threads;
    for (const auto *text : {"aaaa", "bbbb", "cccc"}) {
        threads.emplace_back([this, text] {
            EXPECT_TRUE(typeText(text, typing, [](microseconds) { std::this_thread::yield(); }));
        });
    }
    threads.clear();
    const auto list = characters();
    ASSERT_THAT(list, SizeIs(12));
    for (std::size_t i = 0; i < list.size(); i += 4) {
        EXPECT_THAT(std::vector(list.begin() + static_cast<std::ptrdiff_t>(i),
                                list.begin() + static_cast<std::ptrdiff_t>(i + 4)),
                    Each(list[i]));
    }
}

TEST_F(TextTypingTest, TheInstalledWaysAreUsedAndTheCallTakesItsTime)
{
    const platform::TypingInstallation installation(typing);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(typeText("ab"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, microseconds(20'000));
    EXPECT_THAT(characters(), ElementsAre(u"a", u"b"));
}

} // namespace sharedcore

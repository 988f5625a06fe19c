// Typing through the portal, as far as a stand-in for it sees.

#include "Platform/Linux/Portal/PortalTyping.h"

#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeRemoteDesktopPortal.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <future>
#include <thread>

namespace platform {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;

namespace {

constexpr std::chrono::milliseconds briefly(200);

} // namespace

// The caller is another thread, since the stand-in answers on this one.
class PortalTypingTest : public testing::Test
{
protected:
    using Portal = testsupport::FakeRemoteDesktopPortal;
    using Answer = Portal::Answer;

    struct Arrived
    {
        int symbol = 0;
        unsigned state = 0;

        bool operator==(const Arrived &) const = default;
    };

    template <class Function> auto elsewhere(Function function)
    {
        auto result = std::async(std::launch::async, std::move(function));
        EXPECT_TRUE(testsupport::eventually(
            [&] { return result.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
            std::chrono::seconds(30)));
        return result.get();
    }

    [[nodiscard]] std::unique_ptr<TextTyper> open()
    {
        if (!typing) {
            typing.emplace(RemoteDesktopToken(tokenFile()), patience);
        }
        return elsewhere([this] { return typing->open(why); });
    }

    [[nodiscard]] bool type(TextTyper &typer, std::u16string_view character)
    {
        return elsewhere([&] { return typer.post({character, true}) && typer.post({character, false}); });
    }

    [[nodiscard]] std::vector<Arrived> arrived() const
    {
        std::vector<Arrived> list;
        for (const auto &input : portal->inputs()) {
            EXPECT_EQ(input.method, QStringLiteral("NotifyKeyboardKeysym"));
            list.push_back({input.values.value(0).toInt(), input.values.value(1).toUInt()});
        }
        return list;
    }

    [[nodiscard]] QString tokenFile() const { return folder.filePath(QStringLiteral("state/typing-token")); }

    QTemporaryDir folder;
    std::optional<Portal> portal;
    std::chrono::milliseconds patience = std::chrono::seconds(30);
    std::optional<PortalTyping> typing;
    QString why;
};

TEST_F(PortalTypingTest, WithoutAPortalThereIsNoWay)
{
    EXPECT_THAT(open(), IsNull());
    EXPECT_FALSE(why.isEmpty());
}

TEST_F(PortalTypingTest, EachCodePointIsASymbolThatGoesDownAndUp)
{
    portal.emplace(testsupport::sessionBus());
    const auto typer = open();
    ASSERT_THAT(typer, NotNull());
    EXPECT_TRUE(type(*typer, u"a"));
    EXPECT_TRUE(type(*typer, u"e\u0301"));
    EXPECT_TRUE(type(*typer, u"\n"));
    EXPECT_THAT(arrived(), ElementsAre(Arrived{'a', 1}, Arrived{'a', 0}, Arrived{'e', 1}, Arrived{'e', 0},
                                       Arrived{0x1000301, 1}, Arrived{0x1000301, 0}, Arrived{0xff0d, 1},
                                       Arrived{0xff0d, 0}));
}

TEST_F(PortalTypingTest, OneSessionServesAllTextsAndItsTokenIsKept)
{
    portal.emplace(testsupport::sessionBus());
    ASSERT_THAT(open(), NotNull());
    ASSERT_THAT(open(), NotNull());
    EXPECT_EQ(portal->sessionCount(), 1);
    EXPECT_EQ(RemoteDesktopToken(tokenFile()).load(), portal->token());
}

TEST_F(PortalTypingTest, WhatTheUserRefusedIsNotAskedForAgain)
{
    portal.emplace(testsupport::sessionBus(), Portal::Script{.toQuestion = Answer::refuse});
    EXPECT_THAT(open(), IsNull());
    EXPECT_FALSE(why.isEmpty());
    EXPECT_THAT(open(), IsNull());
    EXPECT_EQ(portal->sessionCount(), 1);
}

TEST_F(PortalTypingTest, ThePointerAloneIsARefusalAndItsTokenIsNotKept)
{
    RemoteDesktopToken(tokenFile()).save(QStringLiteral("last-run"));
    portal.emplace(testsupport::sessionBus(), Portal::Script{.grantedDevices = 2});
    EXPECT_THAT(open(), IsNull());
    EXPECT_FALSE(why.isEmpty());
    EXPECT_EQ(RemoteDesktopToken(tokenFile()).load(), QString());
    EXPECT_TRUE(testsupport::eventually([this] { return !portal->hasSession(); })) << "nobody uses it";
    EXPECT_THAT(open(), IsNull());
    EXPECT_EQ(portal->sessionCount(), 1);
}

TEST_F(PortalTypingTest, TheKeyboardAloneIsEnough)
{
    portal.emplace(testsupport::sessionBus(), Portal::Script{.grantedDevices = 1});
    const auto typer = open();
    ASSERT_THAT(typer, NotNull());
    EXPECT_TRUE(type(*typer, u"a"));
}

TEST_F(PortalTypingTest, ATextBeforeTheAnswerIsNotTypedAndTheNextOneIs)
{
    portal.emplace(testsupport::sessionBus(), Portal::Script{.toQuestion = Answer::later});
    patience = briefly;
    EXPECT_THAT(open(), IsNull());
    EXPECT_FALSE(why.isEmpty());
    EXPECT_TRUE(testsupport::eventually([this] { return portal->questionCount() == 1; }));
    portal->answerQuestion(Answer::grant);
    std::unique_ptr<TextTyper> typer;
    EXPECT_TRUE(testsupport::eventually([&] { return (typer = open()) != nullptr; }));
    EXPECT_EQ(portal->sessionCount(), 1);
}

TEST_F(PortalTypingTest, APortalThatIsSilentIsNotWaitedForMoreThanItsTime)
{
    portal.emplace(testsupport::sessionBus(), Portal::Script{.isSilent = true});
    patience = briefly;
    EXPECT_THAT(open(), IsNull());
    EXPECT_FALSE(why.isEmpty());
}

TEST_F(PortalTypingTest, ASessionThatTheDesktopClosedIsOpenedAgainForTheNextText)
{
    portal.emplace(testsupport::sessionBus());
    const auto typer = open();
    ASSERT_THAT(typer, NotNull());
    portal->closeSession();
    EXPECT_TRUE(testsupport::eventually([&] { return !typer->isOpen(); }));
    EXPECT_FALSE(type(*typer, u"a"));
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_THAT(open(), NotNull());
    EXPECT_EQ(portal->sessionCount(), 2);
}

// Some text is always under way: the thread goes on as long as it may.
TEST_F(PortalTypingTest, TheApplicationMayEndInTheMidstOfAText)
{
    portal.emplace(testsupport::sessionBus());
    const auto typer = open();
    ASSERT_THAT(typer, NotNull());
    bool isOpenAfterwards = true;
    std::unique_ptr<TextTyper> next;
    std::thread thread([&] {
        while (typer->post({u"a", true}) && typer->post({u"a", false})) {
        }
        isOpenAfterwards = typer->isOpen();
        next = typing->open(why);
    });
    portal->onInput([this](const auto &) {
        if (portal->inputs().size() == 20) {
            QCoreApplication::quit();
        }
    });
    QCoreApplication::exec();
    thread.join();
    EXPECT_FALSE(isOpenAfterwards);
    EXPECT_THAT(next, IsNull());
    EXPECT_FALSE(why.isEmpty());
}

TEST_F(PortalTypingTest, APortalThatTakesNoKeysIsToldOf)
{
    portal.emplace(testsupport::sessionBus(), Portal::Script{.takesInput = false});
    const auto typer = open();
    ASSERT_THAT(typer, NotNull());
    EXPECT_FALSE(type(*typer, u"a"));
    EXPECT_FALSE(typer->isOpen());
}

} // namespace platform

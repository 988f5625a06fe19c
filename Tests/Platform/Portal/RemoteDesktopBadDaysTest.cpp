// What becomes of posting when the portal refuses, fails, falls silent or goes away.

#include "Tests/Platform/Portal/RemoteDesktopTest.h"

namespace platform {

using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::eventually;

class RemoteDesktopBadDaysTest : public RemoteDesktopTest
{
protected:
    // Posts until a session is asked for and does not come; says how many posts that took.
    [[nodiscard]] int postsToTheNextFailure() const
    {
        const int count = portal->sessionCount();
        int posts = 0;
        while (portal->sessionCount() == count && posts < 100) {
            EXPECT_FALSE(move(1, 1));
            EXPECT_TRUE(settles());
            ++posts;
        }
        EXPECT_TRUE(comesToSay("did not open"));
        return posts;
    }
};

TEST_F(RemoteDesktopBadDaysTest, AfterADenialNothingIsAskedUntilTheUserStartsAgain)
{
    startPortal({.toQuestion = Answer::refuse});
    poster->prepare();
    ASSERT_TRUE(comesToSay("was denied"));
    EXPECT_TRUE(poster->isOpen());
    EXPECT_FALSE(poster->isWaiting());
    EXPECT_TRUE(postsInVain(40));
    EXPECT_EQ(portal->questionCount(), 1);

    portal->script().toQuestion = Answer::grant;
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    EXPECT_TRUE(move(1, 1));
    EXPECT_EQ(portal->questionCount(), 2);
}

TEST_F(RemoteDesktopBadDaysTest, ADenialSpendsTheToken)
{
    settings.token.save(QStringLiteral("revoked"));
    startPortal({.toQuestion = Answer::refuse});
    poster->prepare();
    ASSERT_TRUE(comesToSay("was denied"));
    EXPECT_EQ(settings.token.load(), QString());
}

TEST_F(RemoteDesktopBadDaysTest, AGrantOfNothingIsADenial)
{
    startPortal({.grantedDevices = 0});
    poster->prepare();
    ASSERT_TRUE(comesToSay("was denied"));
    EXPECT_TRUE(postsInVain(5));
}

TEST_F(RemoteDesktopBadDaysTest, ADenialIsRememberedWhenThePortalRestarts)
{
    startPortal({.toQuestion = Answer::refuse});
    poster->prepare();
    ASSERT_TRUE(comesToSay("was denied"));
    startPortal();
    EXPECT_TRUE(postsInVain(5));
    poster->prepare();
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, FailuresInARowAreTriedAgainMoreAndMoreRarelyAndAtOnceWhenTheUserStarts)
{
    startPortal({.toQuestion = Answer::fail});
    poster->prepare();
    ASSERT_TRUE(comesToSay("did not open"));
    std::vector<int> posts(6);
    std::ranges::generate(posts, [this] { return postsToTheNextFailure(); });
    EXPECT_THAT(posts, ElementsAre(1, 2, 4, 8, 16, 16));

    portal->script().toQuestion = Answer::grant;
    poster->prepare();
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, AStepThatFailsIsAFailureThatIsTriedAgain)
{
    const std::vector<Portal::Script> scripts{
        {.toCreate = Answer::fail},
        {.toCreate = Answer::error},
        {.toCreate = Answer::grant, .toSelect = Answer::fail},
        {.toSelect = Answer::error},
        {.toQuestion = Answer::error},
    };
    for (const auto &script : scripts) {
        openPoster();
        startPortal(script);
        poster->prepare();
        EXPECT_TRUE(comesToSay("did not open"));
        EXPECT_TRUE(poster->isOpen());
        EXPECT_FALSE(poster->isReady());
        portal->script() = {};
        EXPECT_FALSE(move(1, 1));
        EXPECT_TRUE(comesToBeReady());
        EXPECT_TRUE(move(1, 1));
    }
}

TEST_F(RemoteDesktopBadDaysTest, AStepThatIsNeverAnsweredIsGivenUp)
{
    settings.patience = std::chrono::milliseconds(100);
    for (const auto &script :
         std::vector<Portal::Script>{{.toCreate = Answer::later}, {.toSelect = Answer::later}}) {
        openPoster();
        startPortal(script);
        poster->prepare();
        ASSERT_TRUE(comesToSay("did not open"));
        EXPECT_TRUE(eventually([&] { return portal->closed().contains(QStringLiteral("Request")); }));
        EXPECT_TRUE(eventually([&] { return !portal->hasSession(); }));
    }
}

TEST_F(RemoteDesktopBadDaysTest, TheUserMayTakeLongerThanThePortal)
{
    settings.patience = std::chrono::milliseconds(300);
    openPoster();
    startPortal({.toQuestion = Answer::later});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->questionCount() == 1; }));
    testsupport::letPass(2 * settings.patience);
    EXPECT_THAT(portal->closed(), IsEmpty());
    portal->answerQuestion(Answer::grant);
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, ASilentPortalIsAskedOnceAtATime)
{
    startPortal({.isSilent = true});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->callCount() == 1; }));
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(move(1, 1));
        poster->prepare();
    }
    testsupport::letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(portal->callCount(), 1);
    EXPECT_TRUE(poster->isOpen());
    EXPECT_TRUE(comesToSay("has not answered"));

    portal->script() = {};
    startPortal(); // the bus answers for the one that is gone
    ASSERT_TRUE(comesToSay("did not open"));
    EXPECT_FALSE(move(1, 1));
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, ASessionThatIsClosedIsAskedForAgainAtTheNextPost)
{
    runSession();
    EXPECT_TRUE(move(1, 1));
    ASSERT_TRUE(settles());
    portal->closeSession();
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_TRUE(poster->isOpen());
    EXPECT_EQ(portal->sessionCount(), 1);
    EXPECT_FALSE(move(0, 0));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_EQ(portal->sessionCount(), 2);
    EXPECT_EQ(portal->questionCount(), 1);
    EXPECT_TRUE(move(0, 0));
}

TEST_F(RemoteDesktopBadDaysTest, ASessionThatIsClosedBeforeItRunsIsAFailure)
{
    startPortal({.toQuestion = Answer::later});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->questionCount() == 1; }));
    portal->closeSession();
    EXPECT_TRUE(comesToSay("did not open"));
    portal->script().toQuestion = Answer::grant;
    EXPECT_TRUE(asksAgain(2));
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, AnErrorOfAnInputTellsOfASessionThatWasLostWithoutAWord)
{
    runSession();
    portal->loseSession();
    EXPECT_TRUE(move(1, 1)); // handed over, as far as anybody can know
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_FALSE(move(2, 2));
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, ADesktopThatTakesNoInputIsNotAskedAtEveryPost)
{
    runSession({.takesInput = false});
    EXPECT_TRUE(move(1, 1));
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_TRUE(asksAgain(2));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_TRUE(move(1, 1));
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_TRUE(postsInVain(1));
    EXPECT_TRUE(asksAgain(3));
}

TEST_F(RemoteDesktopBadDaysTest, APortalThatRestartsIsAskedAgainAtTheNextPost)
{
    runSession();
    startPortal();
    ASSERT_TRUE(comesToSay("closed the session"));
    EXPECT_FALSE(move(1, 1));
    EXPECT_TRUE(comesToBeReady());
    EXPECT_EQ(portal->questionCount(), 1);
}

TEST_F(RemoteDesktopBadDaysTest, APortalThatEndsWithTheQuestionIsAskedAgainWhenItIsBack)
{
    startPortal({.toQuestion = Answer::later});
    poster->prepare();
    ASSERT_TRUE(eventually([&] { return portal->questionCount() == 1; }));
    portal.reset();
    ASSERT_TRUE(comesToSay("closed the session"));
    startPortal();
    EXPECT_TRUE(asksAgain(1));
    EXPECT_TRUE(comesToBeReady());
}

TEST_F(RemoteDesktopBadDaysTest, APortalThatEndsInTheMiddleOfACallIsAskedAgainWhenItIsBack)
{
    for (const auto &script : std::vector<Portal::Script>{
             {.toCreate = Answer::silence}, {.toSelect = Answer::silence}, {.toQuestion = Answer::silence}}) {
        openPoster();
        startPortal(script);
        poster->prepare();
        ASSERT_TRUE(eventually([&] { return portal->sessionCount() == 1; }));
        ASSERT_TRUE(settles());
        portal.reset();
        EXPECT_TRUE(
            eventually([&] { return !poster->obstacle().reason.contains(QLatin1String("answered")); }));
        startPortal();
        EXPECT_TRUE(asksAgain(1));
        EXPECT_TRUE(comesToBeReady());
    }
}

} // namespace platform

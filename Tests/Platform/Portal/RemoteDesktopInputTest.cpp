// What arrives at the portal of each event that is posted.

#include "Tests/Platform/Portal/RemoteDesktopTest.h"
#include "Tests/Support/Eventually.h"

#include <algorithm>
#include <limits>

namespace platform {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

namespace {

constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr double none = 0;

KeyEvent press(std::uint16_t code)
{
    return {code, true, 0};
}

KeyEvent release(std::uint16_t code)
{
    return {code, false, 0};
}

} // namespace

class RemoteDesktopInputTest : public RemoteDesktopTest
{
protected:
    using Input = Portal::Input;

    struct Arrived
    {
        QString method;
        QVariantList values;

        bool operator==(const Arrived &) const = default;
    };

    static Arrived step(double dx, double dy) { return {QStringLiteral("NotifyPointerMotion"), {dx, dy}}; }
    static Arrived key(int code, unsigned state)
    {
        return {QStringLiteral("NotifyKeyboardKeycode"), {code, state}};
    }

    [[nodiscard]] std::vector<Arrived> arrived() const
    {
        EXPECT_TRUE(settles());
        std::vector<Arrived> list;
        for (const auto &input : portal->inputs()) {
            list.push_back({input.method, input.values});
        }
        return list;
    }

    [[nodiscard]] bool comesToHave(std::size_t count) const
    {
        return testsupport::eventually([&] { return portal->inputs().size() >= count; });
    }
};

TEST_F(RemoteDesktopInputTest, AMoveIsAStepFromWhereThePointerWasMovedLast)
{
    runSession();
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
    EXPECT_TRUE(move(1, 1));
    EXPECT_TRUE(move(0, 0));
    EXPECT_TRUE(move(-1, -1));
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{-1, -1}));
    EXPECT_TRUE(move(300.6, 200.4));
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{301, 200}));
    EXPECT_THAT(arrived(), ElementsAre(step(1, 1), step(-1, -1), step(-1, -1), step(302, 201)));
}

TEST_F(RemoteDesktopInputTest, AMoveThatIsNotPostedLeavesThePointerWhereItIs)
{
    startPortal({.toQuestion = Answer::refuse});
    EXPECT_FALSE(move(1, 1));
    EXPECT_THAT(poster->pointerLocation(), Optional(PointerLocation{0, 0}));
}

TEST_F(RemoteDesktopInputTest, APlaceThatNoPointerCanHaveIsRefused)
{
    runSession();
    for (const double bad :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), 32768.0, -32769.0, 1e300}) {
        EXPECT_FALSE(move(bad, 10)) << bad;
        EXPECT_FALSE(move(10, bad)) << bad;
    }
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_TRUE(poster->isReady());
}

TEST_F(RemoteDesktopInputTest, AKeyWithoutAMeaningGoesDownAndUpWhenItsReleaseIsPosted)
{
    runSession();
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_TRUE(poster->post(release(leftCommand)));
    ASSERT_TRUE(comesToHave(2));
    EXPECT_TRUE(poster->post(press(rightCommand)));
    EXPECT_TRUE(poster->post(release(rightCommand)));
    ASSERT_TRUE(comesToHave(4));
    EXPECT_THAT(arrived(), ElementsAre(key(194, 1), key(194, 0), key(189, 1), key(189, 0)));
}

// The portal handles calls on several threads: one that follows at once may overtake.
TEST_F(RemoteDesktopInputTest, AKeyComesUpAfterThePortalHasAnsweredThatItWentDown)
{
    runSession();
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    ASSERT_TRUE(comesToHave(2));
    EXPECT_THAT(arrived(), ElementsAre(key(194, 1), key(194, 0)));
    EXPECT_TRUE(portal->inputs().front().wantsReply);
    EXPECT_FALSE(portal->inputs().back().wantsReply);
}

TEST_F(RemoteDesktopInputTest, AReleaseWithoutItsPressIsRefused)
{
    runSession();
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_FALSE(poster->post(release(rightCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_TRUE(comesToHave(2));
}

TEST_F(RemoteDesktopInputTest, APressFromBeforeTheSessionIsNotHeld)
{
    startPortal();
    EXPECT_FALSE(poster->post(press(leftCommand)));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(RemoteDesktopInputTest, APressIsForgottenWithItsSession)
{
    runSession();
    EXPECT_TRUE(poster->post(press(leftCommand)));
    portal->closeSession();
    ASSERT_TRUE(comesToSay("closed the session"));
    poster->prepare();
    ASSERT_TRUE(comesToBeReady());
    EXPECT_FALSE(poster->post(release(leftCommand)));
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(RemoteDesktopInputTest, AKeyWithoutACarrierIsRefused)
{
    runSession();
    for (const std::uint16_t code : std::initializer_list<std::uint16_t>{0, 53, 56, 65535}) {
        EXPECT_FALSE(poster->post(press(code))) << code;
        EXPECT_FALSE(poster->post(release(code))) << code;
    }
    EXPECT_THAT(arrived(), IsEmpty());
}

TEST_F(RemoteDesktopInputTest, TheCarrierIsChosenAtEachPress)
{
    std::uint16_t carrier = 240;
    settings.silentKeys = [&carrier](std::uint16_t /*code*/) { return std::optional(carrier); };
    openPoster();
    runSession();
    EXPECT_TRUE(poster->post(press(leftCommand)));
    carrier = 189;
    EXPECT_TRUE(poster->post(release(leftCommand)));
    ASSERT_TRUE(comesToHave(2));
    EXPECT_TRUE(poster->post(press(leftCommand)));
    EXPECT_TRUE(poster->post(release(leftCommand)));
    ASSERT_TRUE(comesToHave(4));
    EXPECT_THAT(arrived(), ElementsAre(key(240, 1), key(240, 0), key(189, 1), key(189, 0)));
}

TEST_F(RemoteDesktopInputTest, AScrollGoesDownByPixelsAndItsReturnEndsTheSeries)
{
    runSession();
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    const QString axis = QStringLiteral("NotifyPointerAxis");
    EXPECT_THAT(arrived(), ElementsAre(Arrived{axis, {none, 1.0}}, Arrived{axis, {none, -1.0}}));
    EXPECT_EQ(portal->inputs()[0].options, (QVariantMap{{QStringLiteral("finish"), false}}));
    EXPECT_EQ(portal->inputs()[1].options, (QVariantMap{{QStringLiteral("finish"), true}}));
}

TEST_F(RemoteDesktopInputTest, TheReturnOfAScrollFromBeforeTheSessionIsNotPosted)
{
    startPortal();
    EXPECT_FALSE(poster->post(ScrollPixels{1}));
    ASSERT_TRUE(comesToBeReady());
    EXPECT_FALSE(poster->post(ScrollPixels{-1}));
    EXPECT_THAT(arrived(), IsEmpty());
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    EXPECT_THAT(arrived(), SizeIs(2));
}

TEST_F(RemoteDesktopInputTest, AScrollOfAnySizeIsSurvived)
{
    runSession();
    using Range = std::numeric_limits<std::int32_t>;
    for (const auto pixels : {0, Range::max(), Range::min()}) {
        EXPECT_TRUE(poster->post(ScrollPixels{pixels}));
    }
    EXPECT_THAT(arrived(), SizeIs(3));
    EXPECT_TRUE(poster->isReady());
}

TEST_F(RemoteDesktopInputTest, OneCallASecondIsAnsweredAtMost)
{
    runSession();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(poster->post(ScrollPixels{1}));
    EXPECT_TRUE(poster->post(ScrollPixels{-1}));
    EXPECT_TRUE(move(1, 1));
    EXPECT_TRUE(move(0, 0));
    const auto duration = std::chrono::steady_clock::now() - start;
    ASSERT_THAT(arrived(), SizeIs(4));
    EXPECT_TRUE(portal->inputs().front().wantsReply);
    EXPECT_LE(std::ranges::count_if(portal->inputs(), &Input::wantsReply),
              1 + duration / std::chrono::seconds(1));
}

} // namespace platform

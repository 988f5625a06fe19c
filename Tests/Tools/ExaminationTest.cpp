#include "Tools/Doctor/Examination.h"

#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Tools/FakeDiagnosis.h"

#include <gmock/gmock.h>

namespace doctor {

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using namespace std::chrono_literals;

const auto first = QStringLiteral("first");
const auto second = QStringLiteral("second");
const platform::Obstacle shut{QStringLiteral("shut"), QStringLiteral("open it")};

class ExaminationTest : public testing::Test
{
protected:
    ExaminationTest()
    {
        diagnosis.order = {first, second};
        diagnosis.onPost = [this] {
            diagnosis.isIdle = false;
            idleAgainIn = 1000ms;
        };
    }

    // Time is the scheduler's, in steps of a hundredth of a second; who does nothing becomes idle in a
    // second.
    bool wait(const std::function<bool()> &condition, std::chrono::milliseconds longest)
    {
        for (auto waited = 0ms; !condition(); waited += step) {
            if (waited >= longest) {
                return false;
            }
            platform.scheduler().advance(step);
            idleAgainIn -= step;
            diagnosis.isIdle = diagnosis.isIdle || (idleAgainIn <= 0ms && becomesIdle);
        }
        return true;
    }

    Report run()
    {
        return Examination(diagnosis,
                           [this](const auto &condition, auto longest) { return wait(condition, longest); })
            .run();
    }

    static auto resultsAre(Result result) { return Each(Field(&Action::result, result)); }

    static constexpr std::chrono::milliseconds step{10};

    fakes::FakePlatform platform;
    fakes::FakeDiagnosis diagnosis;
    std::chrono::milliseconds idleAgainIn{0};
    bool becomesIdle = true;
};

} // namespace

TEST_F(ExaminationTest, EachActionIsDoneOnceThroughTheFirstWayThatWorks)
{
    diagnosis.ways[first].obstacle = shut;
    const auto report = run();
    EXPECT_EQ(report.chosen, second);
    EXPECT_THAT(report.backends, ElementsAre(Backend{first, false, shut}, Backend{second, true, {}}));
    EXPECT_THAT(report.actions, ElementsAre(Action{QStringLiteral("Mouse Jiggle"), Result::confirmed},
                                            Action{QStringLiteral("Key Press"), Result::confirmed},
                                            Action{QStringLiteral("Scroll Pulse"), Result::confirmed}));
    EXPECT_TRUE(report.isConfirmed());
    using namespace platform;
    const auto flag = std::uint64_t{0x800000};
    EXPECT_THAT(diagnosis.ways[second].posted,
                ElementsAre(InputEvent(MouseMoved{{1, 1}}), InputEvent(MouseMoved{{0, 0}}),
                            InputEvent(KeyEvent{55, true, flag}), InputEvent(KeyEvent{55, false, flag}),
                            InputEvent(ScrollPixels{1}), InputEvent(ScrollPixels{-1})));
    EXPECT_THAT(diagnosis.ways[first].posted, IsEmpty());
    EXPECT_THAT(this->platform.inputPoster().posted, IsEmpty());
}

TEST_F(ExaminationTest, AWayThatTurnsOutToBeAbsentMakesRoomForTheNext)
{
    diagnosis.ways[first].isAbsent = true;
    const auto report = run();
    EXPECT_EQ(report.chosen, second);
    EXPECT_FALSE(report.backends.front().works);
    EXPECT_EQ(report.backends.front().obstacle.reason, QStringLiteral("not ready"));
    EXPECT_TRUE(report.isConfirmed());
}

TEST_F(ExaminationTest, TheUserIsAskedOnceAndARefusalIsReported)
{
    diagnosis.ways[first].isRefused = true;
    const auto report = run();
    EXPECT_TRUE(report.chosen.isEmpty());
    EXPECT_EQ(report.obstacle.remedy, QStringLiteral("answer"));
    EXPECT_THAT(report.actions, resultsAre(Result::notConfirmed));
    EXPECT_EQ(diagnosis.ways[first].preparationCount, 1);
    EXPECT_THAT(diagnosis.ways[first].posted, IsEmpty());
    EXPECT_EQ(diagnosis.ways[second].preparationCount, 0);
}

TEST_F(ExaminationTest, AWayThatNeverAnswersIsGivenUp)
{
    diagnosis.ways[first].isSlow = true;
    const auto report = run();
    EXPECT_FALSE(report.backends.front().works);
    EXPECT_EQ(report.chosen, second);
}

TEST_F(ExaminationTest, WhereNoWayWorksNothingIsDone)
{
    diagnosis.ways[first].obstacle = diagnosis.ways[second].obstacle = shut;
    const auto report = run();
    EXPECT_TRUE(report.chosen.isEmpty());
    EXPECT_FALSE(report.obstacle.reason.isEmpty());
    EXPECT_FALSE(report.obstacle.remedy.isEmpty());
    EXPECT_THAT(report.actions, SizeIs(3));
    EXPECT_THAT(report.actions, resultsAre(Result::notConfirmed));
    EXPECT_FALSE(report.isConfirmed());
}

TEST_F(ExaminationTest, AForcedWayIsTheOnlyOneTriedAndTheOthersAreStillReported)
{
    diagnosis.forced = second;
    const auto report = run();
    EXPECT_EQ(report.chosen, second);
    EXPECT_THAT(report.backends, ElementsAre(Backend{first, true, {}}, Backend{second, true, {}}));
    EXPECT_THAT(diagnosis.ways[first].posted, IsEmpty());
}

TEST_F(ExaminationTest, AClockThatDoesNotStartAnewConfirmsNothing)
{
    diagnosis.onPost = [] {};
    const auto report = run();
    EXPECT_EQ(report.idleClock, QStringLiteral("test clock"));
    EXPECT_THAT(report.actions, resultsAre(Result::notConfirmed));
    EXPECT_FALSE(report.isConfirmed());
}

TEST_F(ExaminationTest, WhileSomebodyIsAtTheComputerNothingCanBeConfirmed)
{
    diagnosis.isIdle = becomesIdle = false;
    const auto report = run();
    EXPECT_THAT(report.actions, resultsAre(Result::notConfirmed));
    EXPECT_THAT(diagnosis.ways[first].posted, IsEmpty());
}

TEST_F(ExaminationTest, WithoutAClockTheActionsAreDoneAndNothingIsSaidOfThem)
{
    diagnosis.hasClock = false;
    const auto report = run();
    EXPECT_THAT(report.actions, resultsAre(Result::noIdleClock));
    EXPECT_THAT(diagnosis.ways[first].posted, SizeIs(6));
    EXPECT_FALSE(report.isConfirmed());
}

} // namespace doctor

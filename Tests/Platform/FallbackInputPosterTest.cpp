#include "Platform/FallbackInputPoster.h"

#include "Platform/Linux/InputPosters.h"

#include <QByteArray>

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::Optional;
using testing::SizeIs;

const MouseMoved move{{1, 2}};

// What the candidates are asked and what is posted, and what is to go wrong.
struct Script
{
    std::vector<std::string> calls;
    bool canOpenFirst = true;
    bool canOpenSecond = true;
    bool isFirstLost = false; // the next post finds it out
};

class ScriptedPoster final : public InputPoster
{
public:
    ScriptedPoster(Script &script, std::string name)
        : script_(script)
        , name_(std::move(name))
    {}

    void prepare() override { script_.calls.push_back(name_ + " prepare"); }

    std::optional<PointerLocation> pointerLocation() override
    {
        script_.calls.push_back(name_ + " location");
        return isOpen() ? std::optional(PointerLocation{7, 8}) : std::nullopt;
    }

    bool post(const InputEvent & /*event*/) override
    {
        script_.calls.push_back(name_ + " post");
        isLost_ = name_ == "first" && script_.isFirstLost;
        return isOpen();
    }

    bool isOpen() const override { return !isLost_; }

private:
    Script &script_;
    std::string name_;
    bool isLost_ = false;
};

class FallbackInputPosterTest : public testing::Test
{
protected:
    FallbackInputPoster::Candidate candidate(std::string name, const bool &canOpen)
    {
        return [this, name = std::move(name), &canOpen](Obstacle &why) -> std::unique_ptr<InputPoster> {
            script.calls.push_back("open " + name);
            if (!canOpen) {
                why.reason = QString::fromStdString(name) + QStringLiteral(" is shut");
                return nullptr;
            }
            return std::make_unique<ScriptedPoster>(script, name);
        };
    }

    std::vector<std::string> takeCalls() { return std::exchange(script.calls, {}); }

    Script script;
    FallbackInputPoster poster{
        {candidate("first", script.canOpenFirst), candidate("second", script.canOpenSecond)}};
};

} // namespace

TEST_F(FallbackInputPosterTest, OpensNothingBeforeItsFirstUse)
{
    EXPECT_THAT(script.calls, SizeIs(0));
    EXPECT_TRUE(poster.isOpen());
}

TEST_F(FallbackInputPosterTest, KeepsTheFirstThatOpens)
{
    EXPECT_TRUE(poster.post(move));
    EXPECT_TRUE(poster.post(move));
    EXPECT_THAT(poster.pointerLocation(), Optional(PointerLocation{7, 8}));
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "first post", "first post", "first location"));
}

TEST_F(FallbackInputPosterTest, AsksTheNextWhereOneDoesNotOpen)
{
    script.canOpenFirst = false;
    EXPECT_THAT(poster.pointerLocation(), Optional(PointerLocation{7, 8}));
    EXPECT_TRUE(poster.post(move));
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "open second", "second location", "second post"));
}

TEST_F(FallbackInputPosterTest, AsksEachOnceAgainAtEveryUseWhileNoneOpens)
{
    script.canOpenFirst = script.canOpenSecond = false;
    EXPECT_FALSE(poster.post(move));
    EXPECT_EQ(poster.pointerLocation(), std::nullopt);
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "open second", "open first", "open second"));
    script.canOpenSecond = true;
    EXPECT_TRUE(poster.post(move));
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "open second", "second post"));
}

TEST_F(FallbackInputPosterTest, LooksFromTheStartAgainWhenItsWayIsLost)
{
    EXPECT_TRUE(poster.post(move));
    script.isFirstLost = true;
    EXPECT_FALSE(poster.post(move));
    script.canOpenFirst = false;
    static_cast<void>(takeCalls());
    EXPECT_TRUE(poster.post(move));
    EXPECT_TRUE(poster.post(move));
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "open second", "second post", "second post"));
}

TEST_F(FallbackInputPosterTest, PreparesTheOneItWillPostThrough)
{
    EXPECT_FALSE(poster.isReady());
    script.canOpenFirst = false;
    poster.prepare();
    EXPECT_TRUE(poster.isReady());
    EXPECT_EQ(poster.obstacle(), Obstacle{});
    EXPECT_THAT(takeCalls(), ElementsAre("open first", "open second", "second prepare"));
}

TEST_F(FallbackInputPosterTest, SaysWhatIsInTheWayOfTheLastWhereNoneOpens)
{
    script.canOpenFirst = script.canOpenSecond = false;
    poster.prepare();
    EXPECT_FALSE(poster.isReady());
    EXPECT_EQ(poster.obstacle().reason, QStringLiteral("second is shut"));
}

TEST(InputPosterCandidatesTest, TheEnvironmentCanLeaveOneOfThem)
{
    qputenv("STIRRA_INPUT_BACKEND", "none");
    const auto none = inputPosterCandidates();
    ASSERT_THAT(none, SizeIs(1));
    Obstacle why;
    EXPECT_EQ(none.front()(why), nullptr);
    EXPECT_FALSE(why.reason.isEmpty());

    qputenv("STIRRA_INPUT_BACKEND", "xtest");
    EXPECT_THAT(inputPosterCandidates(), SizeIs(1));

    qunsetenv("STIRRA_INPUT_BACKEND");
    const auto all = inputPosterCandidates().size();
    EXPECT_GE(all, 2U);
    qputenv("STIRRA_INPUT_BACKEND", "no such name");
    EXPECT_THAT(inputPosterCandidates(), SizeIs(all));
    qunsetenv("STIRRA_INPUT_BACKEND");
}

} // namespace platform

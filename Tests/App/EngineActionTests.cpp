#include "Tests/App/EngineTest.h"

namespace stirra {

namespace {

using platform::InputEvent;
using platform::KeyEvent;
using platform::MouseMoved;
using platform::ScrollPixels;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t functionFlag = 0x800000;

class EngineActionTest : public EngineTest
{
protected:
    void startIn(Mode mode)
    {
        engine.setMode(mode);
        engine.toggle();
    }
};

TEST_F(EngineActionTest, AJiggleOnAnEvenCountMovesByOneAndReturnsAfterFiftyMilliseconds)
{
    startIn(Mode::mouseJiggle);
    advanceIntervals(1);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(MouseMoved{{101, 201}})));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Mouse jiggle (+1,+1)"));
    advanceSeconds(0.049);
    EXPECT_EQ(posted().size(), 1U);
    advanceSeconds(0.001);
    EXPECT_THAT(posted(),
                ElementsAre(InputEvent(MouseMoved{{101, 201}}), InputEvent(MouseMoved{{100, 200}})));
}

TEST_F(EngineActionTest, AJiggleOnAnOddCountMovesByMinusOne)
{
    startIn(Mode::mouseJiggle);
    advanceSeconds(31);
    platform.inputPoster().posted.clear();
    advanceSeconds(30);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(MouseMoved{{99, 199}}), InputEvent(MouseMoved{{100, 200}})));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Mouse jiggle (+-1,+-1)"));
    EXPECT_EQ(engine.actionLog().first().message, QStringLiteral("Mouse jiggle"));
}

TEST_F(EngineActionTest, AKeyOnAnEvenCountIsTheLeftCommandKeyDownAndUp)
{
    startIn(Mode::keyPress);
    advanceIntervals(1);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(KeyEvent{55, true, functionFlag}),
                                      InputEvent(KeyEvent{55, false, functionFlag})));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Key press: Command"));
    EXPECT_EQ(engine.actionLog().first().message, QStringLiteral("Key: Command"));
}

TEST_F(EngineActionTest, AKeyOnAnOddCountIsTheRightCommandKeyUnderTheNameOption)
{
    startIn(Mode::keyPress);
    advanceIntervals(1);
    platform.inputPoster().posted.clear();
    advanceIntervals(1);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(KeyEvent{54, true, functionFlag}),
                                      InputEvent(KeyEvent{54, false, functionFlag})));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Key press: Option"));
    EXPECT_EQ(engine.actionLog().first().message, QStringLiteral("Key: Option"));
}

TEST_F(EngineActionTest, AScrollReturnsAfterAHundredMilliseconds)
{
    startIn(Mode::scroll);
    advanceIntervals(1);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(ScrollPixels{1})));
    advanceSeconds(0.099);
    EXPECT_EQ(posted().size(), 1U);
    advanceSeconds(0.001);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(ScrollPixels{1}), InputEvent(ScrollPixels{-1})));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Scroll pulse"));
    EXPECT_EQ(engine.actionLog().first().message, QStringLiteral("Scroll"));
}

TEST_F(EngineActionTest, ModeBothAlternatesFromAJiggleAfterEveryStart)
{
    startIn(Mode::both);
    advanceIntervals(4);
    EXPECT_THAT(messages(), ElementsAre("Key: Option", "Mouse jiggle", "Key: Option", "Mouse jiggle",
                                        "Stirra activated"));
    advanceIntervals(1);
    engine.toggle();
    engine.toggle();
    advanceIntervals(1);
    EXPECT_EQ(engine.actionLog().first().message, QStringLiteral("Mouse jiggle"));
}

TEST_F(EngineActionTest, ModeBothAlwaysJigglesByPlusOne)
{
    startIn(Mode::both);
    advanceIntervals(3);
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Mouse jiggle (+1,+1)"));
}

TEST_F(EngineActionTest, EventsThatCannotBeMadeAreSkippedAndTheTextsGoOn)
{
    platform.inputPoster().cannotMake = [](const InputEvent &) { return true; };
    for (const auto mode : StirraEngine::allModes) {
        startIn(mode);
        advanceIntervals(2);
        EXPECT_EQ(engine.totalJiggles(), 2);
        engine.toggle();
    }
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_EQ(engine.actionLog().size(), 16);
}

TEST_F(EngineActionTest, EachHalfOfAKeyIsSkippedOnItsOwn)
{
    platform.inputPoster().cannotMake = [](const InputEvent &event) {
        const auto *key = std::get_if<KeyEvent>(&event);
        return key && key->isDown;
    };
    startIn(Mode::keyPress);
    advanceIntervals(1);
    EXPECT_THAT(posted(), ElementsAre(InputEvent(KeyEvent{55, false, functionFlag})));
}

TEST_F(EngineActionTest, APointerThatCannotBeFoundIsLeftAlone)
{
    platform.inputPoster().location.reset();
    startIn(Mode::mouseJiggle);
    advanceSeconds(31);
    EXPECT_THAT(posted(), IsEmpty());
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Mouse jiggle (+1,+1)"));
    EXPECT_EQ(engine.totalJiggles(), 1);
}

TEST_F(EngineActionTest, ANewTickOrAStopDoesNotCancelAPendingReturn)
{
    engine.setIntervalSeconds(0.03);
    startIn(Mode::mouseJiggle);
    advanceSeconds(0.07);
    engine.toggle();
    advanceSeconds(1);
    EXPECT_EQ(posted().size(), 4U);
    EXPECT_EQ(posted().back(), InputEvent(MouseMoved{{100, 200}}));
}

TEST_F(EngineActionTest, TheReturnGoesToWhereTheMoveBegan)
{
    startIn(Mode::mouseJiggle);
    advanceIntervals(1);
    platform.inputPoster().location = platform::PointerLocation{500, 500};
    advanceSeconds(0.05);
    EXPECT_EQ(posted().back(), InputEvent(MouseMoved{{100, 200}}));
}

} // namespace

} // namespace stirra

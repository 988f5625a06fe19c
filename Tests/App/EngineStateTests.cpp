#include "Tests/App/EngineTest.h"

namespace stirra {

namespace {

using testing::ElementsAre;

TEST_F(EngineTest, IsFresh)
{
    EXPECT_FALSE(engine.isActive());
    EXPECT_EQ(StirraEngine::rawValue(engine.mode()), QStringLiteral("Mouse Jiggle"));
    EXPECT_EQ(engine.intervalSeconds(), 30.0);
    EXPECT_EQ(engine.totalJiggles(), 0);
    EXPECT_EQ(engine.uptimeSeconds(), 0);
    EXPECT_EQ(engine.lastAction(), QStringLiteral("None yet"));
    EXPECT_TRUE(engine.actionLog().isEmpty());
}

TEST_F(EngineTest, ListsItsModesInOrderUnderTheirTexts)
{
    std::vector<std::string> texts;
    for (const auto mode : StirraEngine::allModes) {
        texts.push_back(StirraEngine::rawValue(mode).toStdString());
    }
    EXPECT_THAT(texts, ElementsAre("Mouse Jiggle", "Key Press", "Mouse + Key", "Scroll Pulse"));
}

TEST_F(EngineTest, MakesAModeOfItsExactTextOnly)
{
    EXPECT_EQ(StirraEngine::modeFromRawValue(u"Mouse + Key"), Mode::both);
    EXPECT_EQ(StirraEngine::modeFromRawValue(u"Scroll Pulse"), Mode::scroll);
    EXPECT_EQ(StirraEngine::modeFromRawValue(u"mouse + key"), std::nullopt);
    EXPECT_EQ(StirraEngine::modeFromRawValue(u"Mouse + Key "), std::nullopt);
    EXPECT_EQ(StirraEngine::modeFromRawValue(u""), std::nullopt);
}

TEST_F(EngineTest, ToggleOnAFreshEngineWritesOneEntryAndPostsNothingBeforeTheFirstInterval)
{
    engine.toggle();
    EXPECT_TRUE(engine.isActive());
    EXPECT_THAT(messages(), ElementsAre("Stirra activated"));
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Starting..."));
    advanceSeconds(29.999);
    EXPECT_TRUE(posted().empty());
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Starting..."));
    advanceSeconds(0.001);
    EXPECT_FALSE(posted().empty());
    EXPECT_EQ(engine.totalJiggles(), 1);
}

std::string stopMessageAfter(int uptimeTicks)
{
    fakes::FakePlatform platform;
    StirraEngine engine;
    engine.toggle();
    platform.scheduler().advance(platform::Seconds(uptimeTicks));
    engine.toggle();
    return engine.actionLog().first().message.toStdString();
}

TEST(Engine, SaysAtStopHowLongItRan)
{
    EXPECT_EQ(stopMessageAfter(3), "Stirra deactivated (ran 3s)");
    EXPECT_EQ(stopMessageAfter(61), "Stirra deactivated (ran 1m 01s)");
    EXPECT_EQ(stopMessageAfter(125), "Stirra deactivated (ran 2m 05s)");
    EXPECT_EQ(stopMessageAfter(3600), "Stirra deactivated (ran 1h 00m 00s)");
}

TEST_F(EngineTest, StopKeepsTheFiguresOfTheRunAndTheNextStartResetsThem)
{
    engine.toggle();
    advanceIntervals(2);
    engine.toggle();
    EXPECT_FALSE(engine.isActive());
    EXPECT_EQ(engine.lastAction(), QStringLiteral("Stopped"));
    EXPECT_EQ(engine.totalJiggles(), 2);
    EXPECT_EQ(engine.uptimeSeconds(), 60);
    EXPECT_EQ(platform.scheduler().runningTimers(), 0U);
    engine.toggle();
    EXPECT_EQ(engine.totalJiggles(), 0);
    EXPECT_EQ(engine.uptimeSeconds(), 0);
}

TEST_F(EngineTest, TheFiftyFirstEntryPushesTheOldestOut)
{
    engine.toggle();
    advanceIntervals(49);
    EXPECT_EQ(engine.actionLog().size(), 50);
    EXPECT_EQ(engine.actionLog().last().message, QStringLiteral("Stirra activated"));
    advanceIntervals(1);
    EXPECT_EQ(engine.actionLog().size(), 50);
    EXPECT_EQ(engine.actionLog().last().message, QStringLiteral("Mouse jiggle"));
    advanceIntervals(1000);
    EXPECT_EQ(engine.actionLog().size(), 50);
}

TEST_F(EngineTest, KeepsTheNewestEntryFirstWithItsTime)
{
    engine.toggle();
    advanceIntervals(1);
    EXPECT_THAT(messages(), ElementsAre("Mouse jiggle", "Stirra activated"));
    EXPECT_NE(engine.actionLog().at(0).timeText, engine.actionLog().at(1).timeText);
    EXPECT_FALSE(engine.actionLog().at(0).timeText.isEmpty());
}

TEST_F(EngineTest, EachStartAsksTheSystemToBeReadyForPosting)
{
    EXPECT_EQ(platform.inputPoster().preparationCount, 0);
    engine.toggle();
    EXPECT_EQ(platform.inputPoster().preparationCount, 1);
    engine.toggle();
    engine.toggle();
    EXPECT_EQ(platform.inputPoster().preparationCount, 2);
}

TEST_F(EngineTest, AnIntervalStoredWhileActiveWaitsForTheNextStart)
{
    engine.toggle();
    engine.setIntervalSeconds(15);
    advanceSeconds(60);
    EXPECT_EQ(engine.totalJiggles(), 2);
    engine.toggle();
    engine.toggle();
    advanceSeconds(60);
    EXPECT_EQ(engine.totalJiggles(), 4);
}

TEST_F(EngineTest, AModeStoredWhileActiveCountsFromTheNextTick)
{
    engine.toggle();
    advanceIntervals(1);
    engine.setMode(Mode::scroll);
    advanceIntervals(1);
    EXPECT_THAT(messages(), ElementsAre("Scroll", "Mouse jiggle", "Stirra activated"));
}

TEST_F(EngineTest, FormatsDurations)
{
    EXPECT_EQ(StirraEngine::formatDuration(0), QStringLiteral("0s"));
    EXPECT_EQ(StirraEngine::formatDuration(45), QStringLiteral("45s"));
    EXPECT_EQ(StirraEngine::formatDuration(60), QStringLiteral("1m 00s"));
    EXPECT_EQ(StirraEngine::formatDuration(307), QStringLiteral("5m 07s"));
    EXPECT_EQ(StirraEngine::formatDuration(3723), QStringLiteral("1h 02m 03s"));
    EXPECT_EQ(StirraEngine::formatDuration(360000), QStringLiteral("100h 00m 00s"));
}

// What observers see: the value at each warning, and at each signal of the property itself.
TEST_F(EngineTest, TellsObserversBeforeEachChange)
{
    std::vector<std::string> seen;
    QObject::connect(&engine, &StirraEngine::objectWillChange, &engine,
                     [&] { seen.push_back("before " + std::to_string(static_cast<int>(engine.mode()))); });
    QObject::connect(&engine, &StirraEngine::modeChanged, &engine,
                     [&] { seen.push_back("after " + std::to_string(static_cast<int>(engine.mode()))); });
    engine.setMode(Mode::scroll);
    EXPECT_THAT(seen, ElementsAre("before 0", "after 3"));
}

TEST_F(EngineTest, StartChangesItsPropertiesInOrder)
{
    std::vector<std::string> order;
    int warnings = 0;
    const auto note = [&](const char *name) { return [&order, name] { order.emplace_back(name); }; };
    QObject::connect(&engine, &StirraEngine::objectWillChange, &engine, [&] { ++warnings; });
    QObject::connect(&engine, &StirraEngine::isActiveChanged, &engine, note("isActive"));
    QObject::connect(&engine, &StirraEngine::totalJigglesChanged, &engine, note("totalJiggles"));
    QObject::connect(&engine, &StirraEngine::uptimeSecondsChanged, &engine, note("uptimeSeconds"));
    QObject::connect(&engine, &StirraEngine::lastActionChanged, &engine, note("lastAction"));
    QObject::connect(&engine, &StirraEngine::actionLogChanged, &engine, note("actionLog"));
    engine.start();
    EXPECT_THAT(order, ElementsAre("isActive", "totalJiggles", "uptimeSeconds", "lastAction", "actionLog"));
    EXPECT_EQ(warnings, 5);
    order.clear();
    engine.stop();
    EXPECT_THAT(order, ElementsAre("isActive", "lastAction", "actionLog"));
}

TEST_F(EngineTest, CountsAnHourWithoutLosingATick)
{
    engine.setIntervalSeconds(1);
    engine.toggle();
    advanceSeconds(3600);
    EXPECT_EQ(engine.uptimeSeconds(), 3600);
    EXPECT_EQ(engine.totalJiggles(), 3600);
}

} // namespace

} // namespace stirra

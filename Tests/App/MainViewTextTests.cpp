#include "App/MainViewText.h"
#include "Tests/App/EngineTest.h"

#include <cmath>

namespace stirra {

namespace {

TEST(MainViewText, FormatsTheIntervalsToChooseFrom)
{
    QStringList texts;
    for (const double seconds : MainViewText::intervals()) {
        texts.append(formatInterval(seconds));
    }
    EXPECT_EQ(texts.join(QLatin1Char(' ')), QStringLiteral("15s 30s 1m 2m 5m"));
}

TEST(MainViewText, DropsWhatIsLeftOverOfAnInterval)
{
    EXPECT_EQ(formatInterval(59.9), QStringLiteral("59s"));
    EXPECT_EQ(formatInterval(60), QStringLiteral("1m"));
    EXPECT_EQ(formatInterval(90), QStringLiteral("1m"));
    EXPECT_EQ(formatInterval(119), QStringLiteral("1m"));
    EXPECT_EQ(formatInterval(7200), QStringLiteral("120m"));
    EXPECT_EQ(formatInterval(-0.5), QStringLiteral("0s"));
}

TEST(MainViewTextDeathTest, AnIntervalThatIsNoNumberStopsTheProcess)
{
    EXPECT_DEATH(static_cast<void>(formatInterval(std::nan(""))), "either infinite or NaN");
    EXPECT_DEATH(static_cast<void>(formatInterval(HUGE_VAL)), "either infinite or NaN");
    EXPECT_DEATH(static_cast<void>(formatInterval(1e30)), "greater than Int.max");
    EXPECT_DEATH(static_cast<void>(formatInterval(-1e30)), "less than Int.min");
}

TEST(MainViewText, HasASymbolForEveryMode)
{
    EXPECT_EQ(modeIcon(StirraEngine::Mode::mouseJiggle), QStringLiteral("cursorarrow.motionlines"));
    EXPECT_EQ(modeIcon(StirraEngine::Mode::keyPress), QStringLiteral("keyboard"));
    EXPECT_EQ(modeIcon(StirraEngine::Mode::both), QStringLiteral("cursorarrow.and.square.on.square.dashed"));
    EXPECT_EQ(modeIcon(StirraEngine::Mode::scroll), QStringLiteral("scroll"));
}

} // namespace

} // namespace stirra

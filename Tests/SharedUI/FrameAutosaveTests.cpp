#include "Tests/SharedUI/LaunchWindowTest.h"

#include <QGuiApplication>
#include <QScreen>

namespace sharedui {

namespace {

using FrameAutosaveTest = LaunchWindowTest;
using testing::Eq;
using testing::Optional;

constexpr platform::Seconds quiet(0.5);

// As the desktop does it.
void place(QWindow &window, const QRect &geometry)
{
    window.setGeometry(geometry);
    QCoreApplication::processEvents();
}

TEST_F(FrameAutosaveTest, AFrameThatWasSavedTakesThePlaceOfTheCentredOne)
{
    store(frameEntries(20, 40, 500, 600));
    EXPECT_EQ(present().geometry(), QRect(20, 40, 500, 600));
}

TEST_F(FrameAutosaveTest, WhatIsDamagedIsIgnored)
{
    store(platform::PropertyValue(std::string("no frame")));
    EXPECT_EQ(present({500, 600}).size(), QSize(500, 600));
}

TEST_F(FrameAutosaveTest, AFrameOffEveryScreenIsBroughtBack)
{
    store(frameEntries(5000, 40, 500, 600));
    const auto &window = present();
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
}

TEST_F(FrameAutosaveTest, MovesAreWrittenOnceWhenTheyAreOver)
{
    auto &window = present();
    platform.scheduler().advance(quiet);
    auto before = stored();
    for (int step = 0; step < 20; ++step) {
        place(window, {30 + step, 50, 510, 610});
        platform.scheduler().advance(quiet / 2);
        EXPECT_EQ(stored(), before);
    }
    platform.scheduler().advance(2 * quiet);
    EXPECT_THAT(stored(), Optional(frameEntries(49, 50, 510, 610)));
}

TEST_F(FrameAutosaveTest, AWindowThatNobodyMovedWritesNothing)
{
    present();
    QCoreApplication::processEvents();
    platform.scheduler().advance(10 * quiet);
    windows().first()->close();
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(FrameAutosaveTest, AClosingWindowIsWrittenAtOnce)
{
    auto &window = present();
    place(window, {30, 50, 510, 610});
    window.close();
    EXPECT_THAT(stored(), Optional(frameEntries(30, 50, 510, 610)));
}

TEST_F(FrameAutosaveTest, TheEndOfTheProgramIsWrittenAtOnce)
{
    place(present(), {30, 50, 510, 610});
    controller.reset();
    EXPECT_THAT(stored(), Optional(frameEntries(30, 50, 510, 610)));
    platform.scheduler().advance(quiet); // nobody is left to be woken
}

TEST_F(FrameAutosaveTest, WhatIsNotTheNormalFrameIsNotKept)
{
    auto &window = present();
    place(window, {30, 50, 510, 610});
    platform.scheduler().advance(2 * quiet);
    for (const auto state : {Qt::WindowMaximized, Qt::WindowFullScreen, Qt::WindowMinimized}) {
        window.setWindowStates(state);
        place(window, {0, 0, 800, 700});
        platform.scheduler().advance(2 * quiet);
        EXPECT_THAT(stored(), Optional(frameEntries(30, 50, 510, 610))) << state;
    }
    window.close();
    EXPECT_THAT(stored(), Optional(frameEntries(30, 50, 510, 610)));
}

TEST_F(FrameAutosaveTest, WhereNoPlaceIsToldTheSizeAloneIsKept)
{
    platform.canPlaceWindows = false;
    auto &window = present();
    place(window, {7, 8, 510, 610});
    window.close();
    EXPECT_THAT(stored(), Optional(sizeEntries(510, 610)));
}

TEST_F(FrameAutosaveTest, APlaceFromAnotherDesktopStays)
{
    store(frameEntries(20, 40, 500, 600));
    platform.canPlaceWindows = false;
    auto &window = present();
    place(window, {0, 0, 510, 610});
    window.close();
    EXPECT_THAT(stored(), Optional(frameEntries(20, 40, 510, 610)));
}

TEST_F(FrameAutosaveTest, ADiskThatIsFullLeavesTheWindowAsItIs)
{
    storage.applicationDefaults().isWritable = false;
    auto &window = present();
    place(window, {30, 50, 510, 610});
    window.close();
    controller->bringToFront();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.geometry(), QRect(30, 50, 510, 610));
}

} // namespace

} // namespace sharedui

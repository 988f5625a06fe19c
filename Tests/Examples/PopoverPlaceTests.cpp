#include "Examples/Gallery/MenuBar/PopoverPlace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace gallery {

namespace {

constexpr QSize size(320, 400);

TEST(PopoverPlace, HangsBelowAClickInTheUpperHalfInTheMiddle)
{
    ASSERT_EQ(QGuiApplication::screens().size(), 2);
    EXPECT_EQ(popoverPlace({500, 20}, size), QPoint(500 - 160, 20 + 6));
}

TEST(PopoverPlace, StandsAboveAClickInTheLowerHalf)
{
    EXPECT_EQ(popoverPlace({500, 780}, size), QPoint(500 - 160, 780 - 6 - 400));
}

TEST(PopoverPlace, StaysOnTheScreenThatWasClicked)
{
    EXPECT_EQ(popoverPlace({17, 16}, size), QPoint(6, 22));
    EXPECT_EQ(popoverPlace({990, 16}, size), QPoint(1000 - 320 - 6, 22));
    EXPECT_EQ(popoverPlace({999, 16}, size), QPoint(1000 - 320 - 6, 22));
    EXPECT_EQ(popoverPlace({1000, 16}, size), QPoint(1006, 22)); // the other screen's first column
    EXPECT_EQ(popoverPlace({1590, 16}, size), QPoint(1600 - 320 - 6, 22));
    EXPECT_EQ(popoverPlace({1300, 490}, size), QPoint(1300 - 160, 490 - 6 - 400));
}

TEST(PopoverPlace, ShowsTheBeginningOfWhatIsLargerThanTheScreen)
{
    EXPECT_EQ(popoverPlace({1300, 16}, {700, 900}), QPoint(1006, 6));
}

TEST(PopoverPlace, WithoutAPlaceIsWhereThePointerIs)
{
    QCursor::setPos(400, 30);
    ASSERT_EQ(QCursor::pos(), QPoint(400, 30));
    EXPECT_EQ(popoverPlace({}, size), QPoint(400 - 160, 36));
    EXPECT_EQ(popoverPlace({5000, 5000}, size), QPoint(400 - 160, 36)); // which is on no screen
}

TEST(PopoverPlace, TakesTheClickInDevicePixels)
{
    const auto &screen = *QGuiApplication::primaryScreen();
    const double ratio = screen.devicePixelRatio();
    const QPoint click(qRound(300 * ratio), qRound(20 * ratio));
    EXPECT_EQ(popoverPlace(click, size), QPoint(300 - 160, 26));
}

} // namespace

} // namespace gallery

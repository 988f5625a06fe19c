#include "SharedUI/AppLaunchContainer/SavedFrame.h"
#include "Tests/SharedUI/LaunchWindowTest.h"

namespace sharedui {

namespace {

using platform::PropertyDictionary;
using platform::PropertyValue;

constexpr QSize smallest(380, 520);
const QList<QRect> twoScreens{QRect(0, 30, 1280, 770), QRect(1280, 0, 1920, 1080)};

QRect restored(QRect frame, const QList<QRect> &screens = twoScreens)
{
    return restoredGeometry({frame.topLeft(), frame.size()}, screens, smallest);
}

TEST(SavedFrameTest, AFrameComesBackFromItsStoredForm)
{
    const SavedFrame frame{QPoint(-70, 20), QSize(500, 700)};
    EXPECT_EQ(storedFrame(frame), frameEntries(-70, 20, 500, 700));
    EXPECT_EQ(frameFrom(storedFrame(frame)), frame);

    const SavedFrame sizeAlone{std::nullopt, QSize(500, 700)};
    EXPECT_EQ(storedFrame(sizeAlone), sizeEntries(500, 700));
    EXPECT_EQ(frameFrom(storedFrame(sizeAlone)), sizeAlone);
}

TEST(SavedFrameTest, WhatIsNoFrameIsNone)
{
    EXPECT_EQ(frameFrom(std::nullopt), std::nullopt);
    EXPECT_EQ(frameFrom(PropertyValue(std::string("500 700"))), std::nullopt);
    EXPECT_EQ(frameFrom(PropertyValue(PropertyDictionary{})), std::nullopt);
    EXPECT_EQ(frameFrom(PropertyValue(PropertyDictionary{{"width", std::int64_t{500}}})), std::nullopt);
    EXPECT_EQ(frameFrom(PropertyValue(PropertyDictionary{{"width", 500.0}, {"height", 700.0}})),
              std::nullopt);
    EXPECT_EQ(frameFrom(sizeEntries(0, 700)), std::nullopt);
    EXPECT_EQ(frameFrom(sizeEntries(500, -1)), std::nullopt);
    EXPECT_EQ(frameFrom(sizeEntries(500, 32'768)), std::nullopt);
    EXPECT_EQ(frameFrom(frameEntries(40'000, 0, 500, 700)), (SavedFrame{std::nullopt, QSize(500, 700)}));
    EXPECT_EQ(frameFrom(frameEntries(0, -40'000, 500, 700)), (SavedFrame{std::nullopt, QSize(500, 700)}));
}

TEST(SavedFrameTest, AWindowThatCanBeTakenHoldOfStaysWhereItIs)
{
    EXPECT_EQ(restored({100, 50, 500, 700}), QRect(100, 50, 500, 700));
    EXPECT_EQ(restored({-430, 700, 500, 700}), QRect(-430, 700, 500, 700));
    EXPECT_EQ(restored({1100, 100, 500, 700}), QRect(1100, 100, 500, 700));   // on both
    EXPECT_EQ(restored({3100, 1050, 500, 700}), QRect(3100, 1050, 500, 700)); // in the far corner
}

TEST(SavedFrameTest, AWindowWhoseUpperEdgeIsOutOfReachMovesIntoItsScreen)
{
    EXPECT_EQ(restored({100, -300, 500, 700}), QRect(100, 30, 500, 700));
    EXPECT_EQ(restored({-480, 50, 500, 700}), QRect(0, 50, 500, 700));
    EXPECT_EQ(restored({3180, 50, 500, 700}), QRect(2700, 50, 500, 700));
    EXPECT_EQ(restored({1400, 1070, 500, 700}), QRect(1400, 380, 500, 700));
}

TEST(SavedFrameTest, AWindowOfAScreenThatIsGoneComesToTheMiddleOfTheFirst)
{
    const QList<QRect> oneScreen{twoScreens.first()};
    const auto geometry = restored({2000, 100, 500, 700}, oneScreen);
    EXPECT_EQ(geometry.size(), QSize(500, 700));
    EXPECT_LE((geometry.center() - oneScreen.first().center()).manhattanLength(), 2);
    EXPECT_EQ(restoredGeometry({std::nullopt, QSize(500, 700)}, twoScreens, smallest), geometry);
}

TEST(SavedFrameTest, ItsSizeIsNoLargerThanTheScreensAndNoSmallerThanTheSmallest)
{
    const QList<QRect> oneScreen{twoScreens.first()};
    EXPECT_EQ(restored({0, 30, 30'000, 30'000}, oneScreen), oneScreen.first());
    EXPECT_EQ(restored({100, 50, 1, 1}), QRect(QPoint(100, 50), smallest));
}

} // namespace

} // namespace sharedui

#include "SharedUI/MeshGradientPicture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sharedui {

namespace {

TEST(BlobCenter, GoesRoundAtAngularDistancesOfAQuarter)
{
    const QSizeF size(1000, 500);
    const std::array<QPointF, 4> still{QPointF(800, 250), QPointF(500, 400), QPointF(200, 250),
                                       QPointF(500, 100)};
    for (int i = 0; i < blobCount; ++i) {
        const auto distance = blobCenter(i, 0, size) - still.at(static_cast<std::size_t>(i));
        EXPECT_LT(distance.manhattanLength(), 1e-9) << i;
    }
}

TEST(BlobCenter, MovesDownAtSevenTenthsOfItsRateAcross)
{
    const double time = 2;
    const auto center = blobCenter(1, time, {100, 100});
    EXPECT_NEAR(center.x(), 50 - std::sin(time) * 30, 1e-9);
    EXPECT_NEAR(center.y(), 50 + std::cos(0.7 * time) * 30, 1e-9);
}

TEST(MeshGradientPicture, AllocatesNothingForAPictureOfTheSameSize)
{
    const std::vector<QColor> colors{Qt::red, Qt::green};
    MeshGradientPicture picture;
    const auto *bits = picture.draw({640, 400}, 1, colors).constBits();
    const auto first = picture.draw({640, 400}, 1, colors).copy();
    const auto &second = picture.draw({640, 400}, 2, colors);
    EXPECT_EQ(second.constBits(), bits);
    EXPECT_NE(second, first);
}

TEST(MeshGradientPicture, IsAFractionOfTheViewsSizeAndReachesBeyondIt)
{
    const std::vector<QColor> colors{Qt::red};
    MeshGradientPicture picture;
    EXPECT_EQ(picture.draw({1200, 600}, 0, colors).size(), QSize(102, 52));
    EXPECT_EQ(picture.frame(), QRectF(-12, -12, 1224, 624));
    EXPECT_EQ(picture.draw({16, 8}, 0, colors).size(), QSize(18, 18));
    EXPECT_EQ(picture.frame(), QRectF(-1, -0.5, 18, 9));
}

TEST(MeshGradientPictureDeathTest, StopsTheProcessWithoutAnyColour)
{
    MeshGradientPicture picture;
    EXPECT_DEATH(picture.draw({10, 10}, 0, {}), "Fatal error: Division by zero in remainder operation");
}

} // namespace

} // namespace sharedui

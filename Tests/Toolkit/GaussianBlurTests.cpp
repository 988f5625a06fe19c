#include "Toolkit/GaussianBlur.h"

#include "Toolkit/ShadowPicture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <numeric>

namespace toolkit {

namespace {

// A picture of zeros with a one in the middle of each channel.
std::vector<float> dot(const PictureSize &size)
{
    std::vector<float> picture(static_cast<std::size_t>(size.columns * size.rows * size.channels));
    const int middle = size.rows / 2 * size.columns + size.columns / 2;
    for (int channel = 0; channel < size.channels; ++channel) {
        picture[static_cast<std::size_t>(middle * size.channels + channel)] = 1;
    }
    return picture;
}

double gaussian(double x, double deviation)
{
    return std::exp(-x * x / (2 * deviation * deviation)) / (deviation * std::sqrt(2 * std::numbers::pi));
}

TEST(GaussianBlur, MakesADotABellOfEachDeviation)
{
    constexpr PictureSize size{41, 61, 1};
    auto picture = dot(size);
    GaussianBlur().apply(picture, size, 4, 6);
    for (int y = 0; y < size.rows; ++y) {
        for (int x = 0; x < size.columns; ++x) {
            const double bell = gaussian(x - 20, 4) * gaussian(y - 30, 6);
            EXPECT_NEAR(picture[static_cast<std::size_t>(y * size.columns + x)], bell, 1e-4) << x << ' ' << y;
        }
    }
}

TEST(GaussianBlur, KeepsTheSumAndItsChannelsApart)
{
    constexpr PictureSize size{31, 31, 3};
    auto picture = dot(size);
    for (std::size_t i = 1; i < picture.size(); i += 3) {
        picture[i] = 0;
    }
    GaussianBlur().apply(picture, size, 3, 3);
    EXPECT_NEAR(std::accumulate(picture.begin(), picture.end(), 0.0), 2, 1e-4);
    for (std::size_t i = 1; i < picture.size(); i += 3) {
        EXPECT_EQ(picture[i], 0);
    }
}

TEST(GaussianBlur, LetsAPictureFadeIntoTheEmptinessAroundIt)
{
    constexpr PictureSize size{60, 1, 1};
    std::vector<float> picture(60, 1);
    GaussianBlur().apply(picture, size, 5, 0);
    EXPECT_NEAR(picture[30], 1, 1e-4);
    EXPECT_NEAR(picture[0], 0.5 + gaussian(0, 5) / 2, 2e-3);
    EXPECT_NEAR(picture[59], picture[0], 1e-6);
}

TEST(GaussianBlur, LeavesAsItIsWithoutADeviation)
{
    constexpr PictureSize size{9, 9, 2};
    auto picture = dot(size);
    GaussianBlur blur;
    blur.apply(picture, size, 2, 2);
    picture = dot(size);
    blur.apply(picture, size, 0, -1);
    EXPECT_EQ(picture, dot(size));
}

TEST(ShadowPicture, IsEmptyInsideOfTheShapeAndFadesOutside)
{
    const ShadowShape shape{{60, 40}, 8, 5, 0, QColor(0, 0, 0, 255)};
    EXPECT_EQ(shape.bounds(), QRectF(-15, -15, 90, 70));
    const auto image = shadowPicture(shape, 2);
    ASSERT_EQ(image.size(), QSize(180, 140));
    const auto at = [&](int x, int y) { return image.pixelColor((x + 15) * 2, (y + 15) * 2).alpha(); };
    EXPECT_EQ(at(30, 20), 0);
    EXPECT_EQ(at(30, 1), 0);
    for (int y = 40; y < 54; ++y) {
        const double depth = 0.5 * std::erfc((y + 0.25 - 40) / (5 * std::numbers::sqrt2));
        EXPECT_NEAR(at(30, y), 255 * depth, 4) << y;
    }
}

TEST(ShadowPicture, IsSharpWithoutARadiusAndNoneWithoutASize)
{
    const auto image = shadowPicture({{20, 20}, 0, 0, 4, QColor(10, 20, 30, 200)}, 1);
    ASSERT_EQ(image.size(), QSize(20, 20));
    EXPECT_EQ(image.pixelColor(10, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(10, 18).alpha(), 200);
    EXPECT_TRUE(shadowPicture({{0, 20}, 0, 3, 4, Qt::black}, 1).isNull());
}

} // namespace

} // namespace toolkit

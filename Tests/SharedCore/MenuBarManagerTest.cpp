#include "SharedCore/MenuBarManager/MenuBarManager.h"

#include "Tests/Fakes/FakeMenuBar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace sharedcore {

namespace {

using platform::TemplateImage;
using Representation = TemplateImage::Representation;

// With 18 points, by the frame's index.
constexpr std::array heartSides{18.0, 20.546, 21.6, 20.546, 18.0, 15.454, 14.4, 15.454};
constexpr std::array heartOffsets{0.0, -1.273, -1.8, -1.273, 0.0, 1.273, 1.8, 1.273};

int coverageAt(const Representation &picture, int x, int y)
{
    return picture.coverage.at(static_cast<std::size_t>(y * picture.width + x));
}

// How much of a row is covered, in device pixels.
double rowWidth(const Representation &picture, int y)
{
    const auto row = picture.coverage.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    return std::accumulate(row, row + picture.width, 0) / 255.0;
}

// The same between the middles of rows, in points.
double widthAt(const Representation &picture, double y)
{
    const double row = y * picture.scale - 0.5;
    const int above = static_cast<int>(std::floor(row));
    const double part = row - above;
    return std::lerp(rowWidth(picture, above), rowWidth(picture, above + 1), part) / picture.scale;
}

// Of what is covered at least by half, in points.
struct Bounds
{
    double left = 1e9;
    double top = 1e9;
    double right = 0;
    double bottom = 0;
};

Bounds boundsOf(const Representation &picture)
{
    Bounds bounds;
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (coverageAt(picture, x, y) >= 128) {
                bounds.left = std::min(bounds.left, x / picture.scale);
                bounds.top = std::min(bounds.top, y / picture.scale);
                bounds.right = std::max(bounds.right, (x + 1) / picture.scale);
                bounds.bottom = std::max(bounds.bottom, (y + 1) / picture.scale);
            }
        }
    }
    return bounds;
}

int inkOf(const Representation &picture)
{
    return std::accumulate(picture.coverage.begin(), picture.coverage.end(), 0);
}

TEST(HeartFrames, AreEightTemplateImagesOf18Points)
{
    const auto frames = generateHeartFrames();
    ASSERT_EQ(frames.size(), 8U);
    for (const auto &frame : frames) {
        EXPECT_EQ(frame.width, 18);
        EXPECT_EQ(frame.height, 18);
    }
}

TEST(HeartFrames, ArePicturesForEachScaleFactor)
{
    for (const auto &frame : generateHeartFrames()) {
        ASSERT_EQ(frame.representations.size(), 4U);
        constexpr std::array<std::pair<double, int>, 4> expected{{{1, 18}, {1.5, 27}, {2, 36}, {3, 54}}};
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const auto &picture = frame.representations[i];
            EXPECT_EQ(picture.scale, expected[i].first);
            EXPECT_EQ(picture.width, expected[i].second);
            EXPECT_EQ(picture.height, expected[i].second);
            EXPECT_EQ(picture.coverage.size(), static_cast<std::size_t>(picture.width * picture.height));
        }
    }
}

TEST(HeartFrames, DrawTheHeartWhereItBelongs)
{
    const fakes::FakeMenuBar menuBar;
    EXPECT_EQ(generateHeartFrames().size(), 8U);
    ASSERT_EQ(menuBar.drawn.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(menuBar.drawn[i].name, "heart.fill");
        EXPECT_NEAR(menuBar.drawn[i].place.side, heartSides.at(i), 0.0005);
        EXPECT_NEAR(menuBar.drawn[i].place.x, heartOffsets.at(i), 0.0005);
        EXPECT_NEAR(menuBar.drawn[i].place.y, heartOffsets.at(i), 0.0005);
    }
}

// Runs a test on each frame at each scale factor, beside the first frame's picture, in which the heart is as
// large as the image. `size` is the heart's, as a share of the image's.
void onEachPicture(
    const std::function<void(const Representation &first, const Representation &, double size)> &test)
{
    const auto frames = generateHeartFrames();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::size_t k = 0; k < frames[i].representations.size(); ++k) {
            SCOPED_TRACE(testing::Message() << "frame " << i << ", representation " << k);
            test(frames[0].representations[k], frames[i].representations[k], heartSides.at(i) / 18);
        }
    }
}

// All hearts are the first one, scaled from the middle. The rows below the middle are narrow enough not to be
// clipped.
TEST(HeartFrames, HoldHeartsOfTheirSizes)
{
    onEachPicture([](const auto &first, const auto &picture, double size) {
        for (const double row : {3.0, 4.0, 5.0, 6.0}) { // points below the middle
            const double whole = widthAt(first, 9 + row);
            EXPECT_NEAR(widthAt(picture, 9 + row * size), whole * size, 0.15) << row;
        }
    });
}

TEST(HeartFrames, HoldTheirHeartsInTheMiddle)
{
    onEachPicture([](const auto & /*first*/, const auto &picture, double /*size*/) {
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                EXPECT_NEAR(coverageAt(picture, x, y), coverageAt(picture, picture.width - 1 - x, y), 8);
            }
        }
    });
}

TEST(HeartFrames, AreClippedAtTheirEdges)
{
    onEachPicture([](const auto &first, const auto &picture, double size) {
        const auto whole = boundsOf(first);
        const auto bounds = boundsOf(picture);
        const double pixel = 1.01 / picture.scale;
        const auto scaled = [size](double edge) { return std::clamp(9 + (edge - 9) * size, 0.0, 18.0); };
        EXPECT_NEAR(bounds.left, scaled(whole.left), pixel);
        EXPECT_NEAR(bounds.right, scaled(whole.right), pixel);
        EXPECT_NEAR(bounds.top, scaled(whole.top), pixel);
        EXPECT_NEAR(bounds.bottom, scaled(whole.bottom), pixel);
    });
}

TEST(HeartFrames, TheThirdIsTheLargestAndTheSeventhTheSmallest)
{
    const auto frames = generateHeartFrames();
    std::vector<int> inks;
    for (const auto &frame : frames) {
        inks.push_back(inkOf(frame.representations.back()));
    }
    EXPECT_EQ(std::ranges::max_element(inks) - inks.begin(), 2);
    EXPECT_EQ(std::ranges::min_element(inks) - inks.begin(), 6);
}

TEST(HeartFrames, AreSharp)
{
    // A blown-up picture would have soft edges several pixels wide.
    const auto frames = generateHeartFrames(1);
    for (const auto &picture : frames.front().representations) {
        const auto isSoft = [](int coverage) { return coverage > 0 && coverage < 255; };
        const auto soft = std::ranges::count_if(picture.coverage, isSoft);
        EXPECT_LT(soft, 4 * picture.width) << picture.scale;
        EXPECT_EQ(coverageAt(picture, picture.width / 2, picture.height / 2), 255);
    }
}

TEST(HeartFrames, AreAsManyAndAsLargeAsAsked)
{
    EXPECT_TRUE(generateHeartFrames(0).empty());
    const auto frames = generateHeartFrames(3, 22.5);
    ASSERT_EQ(frames.size(), 3U);
    EXPECT_EQ(frames[0].width, 22.5);
    EXPECT_EQ(frames[0].representations.at(0).width, 23);
    EXPECT_EQ(frames[0].representations.at(2).width, 45);
}

TEST(HeartFrames, OfASizeThatIsNoneHaveNothingToSee)
{
    for (const double size : {0.0, -3.0, 1001.0, std::nan("")}) {
        const auto frames = generateHeartFrames(2, size);
        ASSERT_EQ(frames.size(), 2U);
        EXPECT_TRUE(frames[1].representations.empty()) << size;
    }
}

TEST(HeartFrames, AreBlankWithoutASymbol)
{
    const auto image = platform::MenuBarServices::current().drawSymbol("no.such.symbol", 18, {0, 0, 18});
    EXPECT_EQ(image.width, 18);
    ASSERT_EQ(image.representations.size(), 4U);
    EXPECT_EQ(inkOf(image.representations[3]), 0);
}

TEST(HeartFramesDeathTest, ANegativeCountStopsTheProcess)
{
    EXPECT_DEATH(static_cast<void>(generateHeartFrames(-1)),
                 "Fatal error: Range requires lowerBound <= upperBound");
}

TEST(MenuBarOnlyApp, IsAnAccessory)
{
    const fakes::FakeMenuBar menuBar;
    configureAsMenuBarOnlyApp();
    EXPECT_TRUE(menuBar.isAccessory);
}

TEST(MenuBarOnlyAppDeathTest, WithoutAnApplicationStopsTheProcess)
{
    EXPECT_DEATH(configureAsMenuBarOnlyApp(),
                 "Fatal error: Unexpectedly found nil while implicitly unwrapping an Optional value");
}

} // namespace

} // namespace sharedcore

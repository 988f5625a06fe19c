#include "Toolkit/Symbol.h"

#include "Tests/Toolkit/ToolkitTest.h"

#include <QPainter>

namespace toolkit {

namespace {

// The sum of the opacities of all pixels.
qint64 ink(const QImage &image)
{
    qint64 sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qAlpha(image.pixel(x, y));
        }
    }
    return sum;
}

class SymbolNames : public testing::TestWithParam<const char *>
{};

TEST_P(SymbolNames, IsDrawnInTheColourAsked)
{
    const auto image = symbolImage(QString::fromLatin1(GetParam()), 48, QColor(200, 30, 60), QFont::Normal);
    ASSERT_FALSE(image.isNull());
    EXPECT_GT(ink(image), 0);
    for (int i = 0; i < 48 * 48; ++i) {
        const auto color = image.pixelColor(i % 48, i / 48);
        if (color.alpha() == 255) {
            EXPECT_EQ(color, QColor(200, 30, 60));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Symbols, SymbolNames,
                         testing::Values("arrow.triangle.2.circlepath", "bell.fill", "chevron.right",
                                         "heart.fill", "power", "speedometer", "checkmark.circle.fill",
                                         "circle", "clock.fill", "cursorarrow.and.square.on.square.dashed",
                                         "cursorarrow.motionlines", "exclamationmark.triangle.fill",
                                         "eye.fill", "eye.slash.fill", "keyboard", "number",
                                         "paintpalette.fill", "play.fill", "rectangle.on.rectangle", "scroll",
                                         "stop.fill", "timer", "xmark.circle.fill"));

TEST(Symbol, AnUnknownNameDrawsNothing)
{
    EXPECT_TRUE(symbolImage(QStringLiteral("no.such.symbol"), 16, Qt::black, QFont::Normal).isNull());
    EXPECT_TRUE(symbolImage(QStringLiteral("eye.fill"), 0, Qt::black, QFont::Normal).isNull());
}

TEST(Symbol, AHeavyOneHasMoreInkAndATranslucentOneLess)
{
    const auto name = QStringLiteral("timer");
    const auto normal = ink(symbolImage(name, 32, Qt::black, QFont::Normal));
    const auto medium = ink(symbolImage(name, 32, Qt::black, QFont::Medium));
    EXPECT_GT(medium, normal);
    EXPECT_GT(ink(symbolImage(name, 32, Qt::black, QFont::DemiBold)), medium);
    EXPECT_LT(ink(symbolImage(name, 32, QColor(0, 0, 0, 128), QFont::Normal)), normal * 6 / 10);
}

using SymbolTest = ToolkitTest;

TEST_F(SymbolTest, IsTheSameSmoothOrNotWhileItIsNotScaled)
{
    auto &symbol = show("Symbol { x: 4; y: 4; name: 'stop.fill'; size: 30 }");
    const auto sharp = picture();
    symbol.setSmooth(true);
    EXPECT_EQ(picture(), sharp);
}

TEST_F(SymbolTest, ASmoothOneKeepsItsOutlineSoftWhereItIsScaled)
{
    auto &symbol = show("Symbol { x: 20; y: 20; name: 'checkmark.circle.fill'; size: 10; smooth: true }");
    symbol.setScale(1.1);
    const auto image = picture();
    const double scale = image.width() / 200.0;
    // Half a point beyond the unscaled symbol the scaled one has not ended.
    const auto beyond = image.pixelColor(static_cast<int>((20 + 12.3) * scale), static_cast<int>(26 * scale));
    EXPECT_LT(beyond.lightness(), 250);
}

TEST_F(SymbolTest, IsDrawnWholeAndSharpWhereverItStands)
{
    for (const double size : {14, 16}) { // sides of an odd number of points
        auto &holder = show(
            qPrintable(QStringLiteral("Item { Symbol { objectName: 'icon'; name: 'heart.fill'; size: %1 } }")
                           .arg(size)));
        const double ratio = view.effectiveDevicePixelRatio();
        const int side = qRound(item("icon").width() * ratio);
        auto expected = QImage(side, side, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter(&expected).drawImage(
            0, 0, symbolImage(QStringLiteral("heart.fill"), side, Qt::black, QFont::Normal));
        for (const double place : {0.0, 0.5, 1.0, 3.25, 7.0}) { // only the parent is moved
            holder.setPosition({place, 2 * place});
            const auto corner = (holder.position() * ratio).toPoint();
            const auto drawn = picture().copy({corner, expected.size()});
            EXPECT_EQ(drawn.convertToFormat(QImage::Format_RGB32), expected) << size << " at " << place;
        }
    }
}

TEST_F(SymbolTest, IsAFifthLargerThanItsText)
{
    EXPECT_EQ(show("Symbol { name: 'eye.fill'; size: 32 }").size(), QSizeF(38, 38));
    EXPECT_EQ(show("Symbol { name: 'eye.fill'; size: 10 }").size(), QSizeF(12, 12));
    EXPECT_EQ(show("Symbol { name: 'eye.fill' }").size(), QSizeF(16, 16));
}

TEST_F(SymbolTest, IsDrawnAgainWhenItChanges)
{
    auto &symbol = show("Symbol { name: 'eye.fill'; size: 40 }");
    auto last = picture();
    const auto changes = [&](const char *property, const QVariant &value) {
        symbol.setProperty(property, value);
        const auto now = picture();
        const bool hasChanged = now != last;
        last = now;
        return hasChanged;
    };
    EXPECT_TRUE(changes("color", QColor(Qt::red)));
    EXPECT_TRUE(changes("weight", QFont::Bold));
    EXPECT_TRUE(changes("name", QStringLiteral("stop.fill")));
    EXPECT_TRUE(changes("size", 60));
    EXPECT_TRUE(changes("name", QStringLiteral("no.such.symbol")));
    EXPECT_TRUE(changes("name", QStringLiteral("play.fill")));
}

} // namespace

} // namespace toolkit

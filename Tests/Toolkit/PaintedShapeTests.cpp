#include "Tests/Toolkit/ToolkitTest.h"

#include <QtMath>

namespace toolkit {

namespace {

class PaintedShapeTest : public ToolkitTest
{
protected:
    // The colour at a place of the circle: degrees clockwise from three o'clock, points from its middle.
    [[nodiscard]] static QColor colorAt(const QImage &image, const QQuickItem &circle, double degrees,
                                        double radius)
    {
        const double scale = image.width() / 200.0;
        const double angle = qDegreesToRadians(degrees);
        const double x = circle.width() / 2 + radius * std::cos(angle);
        const double y = circle.height() / 2 + radius * std::sin(angle);
        return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
    }

    static bool isWhite(const QColor &color) { return color.lightness() > 250; }
};

constexpr auto circle = "TrimmedCircle { diameter: 90; lineWidth: 4; topLeadingColor: 'red';"
                        "bottomTrailingColor: 'blue'; ";

TEST_F(PaintedShapeTest, AWholeCircleIsStrokedHalfOutsideOfItsDiameter)
{
    const auto &item = show((QByteArray(circle) + "}").constData());
    const auto image = picture();
    for (int degrees = 5; degrees < 360; degrees += 30) {
        EXPECT_FALSE(isWhite(colorAt(image, item, degrees, 45))) << degrees;
        EXPECT_TRUE(isWhite(colorAt(image, item, degrees, 41.5))) << degrees;
    }
    EXPECT_FALSE(isWhite(colorAt(image, item, 45, 46)));
}

TEST_F(PaintedShapeTest, APartGoesClockwiseFromWhereItIsTurnedTo)
{
    const auto &item = show((QByteArray(circle) + "trimTo: 0.25; turn: -90 }").constData());
    const auto image = picture();
    EXPECT_FALSE(isWhite(colorAt(image, item, -45, 45)));
    EXPECT_TRUE(isWhite(colorAt(image, item, 45, 45)));
    EXPECT_TRUE(isWhite(colorAt(image, item, 180, 45)));
}

TEST_F(PaintedShapeTest, NothingIsDrawnOfAnEmptyPart)
{
    show((QByteArray(circle) + "trimTo: 0 }").constData());
    const auto image = picture();
    QImage empty(image.size(), image.format());
    empty.fill(Qt::white);
    EXPECT_EQ(image, empty);
}

TEST_F(PaintedShapeTest, TheGradientOfACircleRunsAlongItsDiagonal)
{
    const auto &item = show((QByteArray(circle) + "}").constData());
    const auto image = picture();
    EXPECT_GT(colorAt(image, item, 225, 45).red(), 200);
    EXPECT_GT(colorAt(image, item, 45, 45).blue(), 200);
}

TEST_F(PaintedShapeTest, ARoundedRectangleRunsAlongItsDiagonalAndIsRound)
{
    show("RoundedRectangle { width: 40; height: 40; radius: 8; topLeadingColor: 'red'; bottomTrailingColor: "
         "'blue' }");
    const auto image = picture();
    const auto at = [&](int x, int y) {
        const double scale = image.width() / 200.0;
        return image.pixelColor(static_cast<int>(x * scale), static_cast<int>(y * scale));
    };
    EXPECT_GT(at(4, 4).red(), 200);
    EXPECT_GT(at(36, 36).blue(), 200);
    EXPECT_TRUE(isWhite(at(0, 0)));
    EXPECT_TRUE(isWhite(at(39, 39)));
    EXPECT_FALSE(isWhite(at(20, 0)));
}

} // namespace

} // namespace toolkit

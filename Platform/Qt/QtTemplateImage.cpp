#include "Platform/Qt/QtTemplateImage.h"

#include "Platform/Symbols/SymbolDrawing.h"

#include <QImage>
#include <QPainter>

#include <array>
#include <cmath>

namespace platform {

namespace {

constexpr std::array scales{1.0, 1.5, 2.0, 3.0};
constexpr double largestSide = 1000; // points

std::vector<std::uint8_t> coverageOf(const QImage &image)
{
    std::vector<std::uint8_t> coverage;
    coverage.reserve(static_cast<std::size_t>(image.width()) * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            coverage.push_back(static_cast<std::uint8_t>(qAlpha(image.pixel(x, y))));
        }
    }
    return coverage;
}

TemplateImage::Representation draw(const QString &name, double side, const ImageSquare &place, double scale)
{
    const int pixels = static_cast<int>(std::ceil(side * scale));
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF where(place.x * scale, place.y * scale, place.side * scale, place.side * scale);
    drawSymbol(painter, name, where, Qt::black);
    painter.end();
    return {scale, pixels, pixels, coverageOf(image)};
}

} // namespace

TemplateImage drawSymbolTemplate(const QString &name, double side, const ImageSquare &place)
{
    TemplateImage image{side, side, {}};
    if (side > 0 && side <= largestSide) {
        for (const double scale : scales) {
            image.representations.push_back(draw(name, side, place, scale));
        }
    }
    return image;
}

} // namespace platform

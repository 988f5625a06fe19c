#include "Tests/SharedUI/MeshGradientReference.h"

#include <QPointF>

#include <algorithm>
#include <array>
#include <cmath>

namespace sharedui {

namespace {

constexpr double quarterTurn = 1.5707963267948966;
constexpr int samples = 3; // of a pixel, in each direction

using Light = std::array<double, 3>;

struct Plane
{
    int width;
    int height;
    std::vector<Light> pixels;

    Light &at(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

struct View
{
    View(const QSize &size, double time, const std::vector<QColor> &colorsOfBlobs)
        : width(size.width())
        , height(size.height())
        , colors(colorsOfBlobs)
    {
        for (int i = 0; i < 4; ++i) {
            centers[static_cast<std::size_t>(i)] = {
                0.5 * width + std::cos(time + i * quarterTurn) * width * 0.3,
                0.5 * height + std::sin(0.7 * time + i * quarterTurn) * height * 0.3};
        }
    }

    double width;
    double height;
    const std::vector<QColor> &colors;
    std::array<QPointF, 4> centers;

    // What a point of the canvas shows.
    [[nodiscard]] Light light(double x, double y) const
    {
        Light light{};
        for (std::size_t i = 0; i < centers.size(); ++i) {
            const double dx = x - centers[i].x();
            const double dy = y - centers[i].y();
            const double halfWidth = 0.8 * width / 2;
            const double halfHeight = 0.8 * height / 2;
            if (std::pow(dx / halfWidth, 2) + std::pow(dy / halfHeight, 2) > 1) {
                continue;
            }
            const double length = std::hypot(halfWidth, halfHeight);
            const double way = (dx * halfWidth + dy * halfHeight) / length / length;
            const double alpha = way < 0 ? 0.6 : way > 1 ? 0 : 0.6 * (1 - way);
            const auto &color = colors[i % colors.size()];
            const Light paint{color.redF(), color.greenF(), color.blueF()};
            for (std::size_t part = 0; part < 3; ++part) {
                light[part] = paint[part] * alpha + light[part] * (1 - alpha);
            }
        }
        return light;
    }
};

Plane canvas(const View &view, double scale)
{
    Plane plane{static_cast<int>(view.width * scale), static_cast<int>(view.height * scale), {}};
    plane.pixels.resize(static_cast<std::size_t>(plane.width * plane.height));
    for (int i = 0; i < plane.width * plane.height * samples * samples; ++i) {
        const int column = i % (plane.width * samples);
        const int row = i / (plane.width * samples);
        const auto light = view.light((column + 0.5) / samples / scale, (row + 0.5) / samples / scale);
        for (std::size_t part = 0; part < 3; ++part) {
            plane.at(column / samples, row / samples)[part] += light[part] / (samples * samples);
        }
    }
    return plane;
}

std::vector<double> bell(double deviation)
{
    const int radius = static_cast<int>(4 * deviation);
    std::vector<double> weights;
    double sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        weights.push_back(std::exp(-i * i / (2 * deviation * deviation)));
        sum += weights.back();
    }
    std::ranges::for_each(weights, [sum](double &weight) { weight /= sum; });
    return weights;
}

// Blurs along the rows, and turns rows into columns.
Plane blurredAndTurned(Plane &plane, const std::vector<double> &weights)
{
    const int radius = static_cast<int>(weights.size() / 2);
    Plane turned{plane.height, plane.width, std::vector<Light>(plane.pixels.size())};
    for (int i = 0; i < plane.width * plane.height; ++i) {
        const int x = i % plane.width;
        const int y = i / plane.width;
        Light sum{};
        for (int from = std::max(0, x - radius); from <= std::min(plane.width - 1, x + radius); ++from) {
            const double weight = weights[static_cast<std::size_t>(from - x + radius)];
            const auto &light = plane.at(from, y);
            for (std::size_t part = 0; part < 3; ++part) {
                sum[part] += weight * light[part];
            }
        }
        turned.at(y, x) = sum;
    }
    return turned;
}

} // namespace

QImage meshGradientReference(const QSize &size, double time, const std::vector<QColor> &colors, double scale)
{
    auto plane = canvas(View(size, time, colors), scale);
    const auto weights = bell(60 * scale);
    auto turned = blurredAndTurned(plane, weights);
    auto blurred = blurredAndTurned(turned, weights);
    QImage image(blurred.width, blurred.height, QImage::Format_RGB32);
    for (int i = 0; i < blurred.width * blurred.height; ++i) {
        const auto &light = blurred.at(i % blurred.width, i / blurred.width);
        const auto level = [&](std::size_t part) { return static_cast<int>(std::lround(light[part] * 255)); };
        image.setPixel(i % blurred.width, i / blurred.width, qRgb(level(0), level(1), level(2)));
    }
    return image;
}

int greatestDifference(const QImage &left, const QImage &right)
{
    if (left.size() != right.size()) {
        return 255;
    }
    int greatest = 0;
    for (int i = 0; i < left.width() * left.height(); ++i) {
        const QPoint point(i % left.width(), i / left.width());
        const auto one = left.pixel(point);
        const auto other = right.pixel(point);
        greatest = std::max({greatest, std::abs(qRed(one) - qRed(other)),
                             std::abs(qGreen(one) - qGreen(other)), std::abs(qBlue(one) - qBlue(other))});
    }
    return greatest;
}

} // namespace sharedui

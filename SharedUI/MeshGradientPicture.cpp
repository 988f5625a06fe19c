#include "SharedUI/MeshGradientPicture.h"

#include "Foundation/CheckedArithmetic.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sharedui {

namespace {

constexpr double blurRadius = 60;  // points
constexpr double largestCell = 12; // points
constexpr int fewestCells = 16;
constexpr double orbit = 0.3;  // of the view's size
constexpr double extent = 0.4; // of the view's size, from a blob's centre to its outline
constexpr double verticalRate = 0.7;
constexpr double strength = 0.6;
constexpr int channels = 3;
constexpr float levels = 255;

int cellsFor(double length)
{
    return std::max(fewestCells, static_cast<int>(std::ceil(length / largestCell)));
}

} // namespace

QPointF blobCenter(int index, double time, const QSizeF &size)
{
    const double angle = index * std::numbers::pi / 2;
    return {0.5 * size.width() + std::cos(time + angle) * size.width() * orbit,
            0.5 * size.height() + std::sin(verticalRate * time + angle) * size.height() * orbit};
}

struct MeshGradientPicture::Blob
{
    QPointF center;
    double width;  // of half the ellipse
    double height; // of half the ellipse
    double cell;   // points: what the outline is soft within
    double strength;
    std::array<float, channels> color;

    // How much of a cell around a point (from the centre) is inside of the ellipse, by the distance of the
    // outline to the first order.
    [[nodiscard]] double cover(double x, double y) const
    {
        const double outside = x * x / (width * width) + y * y / (height * height) - 1;
        const double slope = 2 * std::hypot(x / (width * width), y / (height * height));
        return slope > 0 ? std::clamp(0.5 - outside / slope / cell, 0.0, 1.0) : 1;
    }

    // How opaque the gradient is there.
    [[nodiscard]] double opacity(double x, double y) const
    {
        const double way = (x * width + y * height) / (width * width + height * height);
        return strength * (1 - std::clamp(way, 0.0, 1.0));
    }
};

const QImage &MeshGradientPicture::draw(const QSizeF &size, double time, std::span<const QColor> colors)
{
    resize(size);
    std::ranges::fill(light_, 0.0F);
    for (int i = 0; i < blobCount; ++i) {
        const auto which = foundation::checkedRemainder(i, static_cast<std::int64_t>(colors.size()));
        const auto color = colors[static_cast<std::size_t>(which)];
        draw({blobCenter(i, time, size),
              extent * size.width(),
              extent * size.height(),
              std::min(cell_.width(), cell_.height()),
              strength * color.alphaF(),
              {color.redF(), color.greenF(), color.blueF()}});
    }
    blur_.apply(light_, cells_, blurRadius / cell_.width(), blurRadius / cell_.height());
    convert();
    return image_;
}

QRectF MeshGradientPicture::frame() const
{
    return QRectF({}, size_).adjusted(-cell_.width(), -cell_.height(), cell_.width(), cell_.height());
}

void MeshGradientPicture::resize(const QSizeF &size)
{
    if (size == size_) {
        return;
    }
    size_ = size;
    const int columns = cellsFor(size.width());
    const int rows = cellsFor(size.height());
    cell_ = {size.width() / columns, size.height() / rows};
    cells_ = {columns + 2, rows + 2, channels};
    light_.resize(static_cast<std::size_t>(cells_.columns) * static_cast<std::size_t>(cells_.rows) *
                  channels);
    image_ = QImage(cells_.columns, cells_.rows, QImage::Format_RGB32);
}

void MeshGradientPicture::draw(const Blob &blob)
{
    for (int row = 1; row < cells_.rows - 1; ++row) {
        drawRow(blob, row);
    }
}

void MeshGradientPicture::drawRow(const Blob &blob, int row)
{
    const double y = (row - 0.5) * cell_.height() - blob.center.y();
    auto light = light_.begin() + (static_cast<std::ptrdiff_t>(row) * cells_.columns + 1) * channels;
    for (int column = 1; column < cells_.columns - 1; ++column) {
        const double x = (column - 0.5) * cell_.width() - blob.center.x();
        const auto opacity = static_cast<float>(blob.cover(x, y) * blob.opacity(x, y));
        for (const float part : blob.color) {
            *light = part * opacity + *light * (1 - opacity);
            ++light;
        }
    }
}

void MeshGradientPicture::convert()
{
    const auto level = [](float light) { return qRound(light * levels); };
    auto light = light_.cbegin();
    for (int y = 0; y < cells_.rows; ++y) {
        auto *line = reinterpret_cast<QRgb *>(image_.scanLine(y));
        for (int x = 0; x < cells_.columns; ++x, light += channels) {
            line[x] = qRgb(level(light[0]), level(light[1]), level(light[2]));
        }
    }
}

} // namespace sharedui

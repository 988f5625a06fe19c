#include "Toolkit/ShadowPicture.h"

#include "Toolkit/GaussianBlur.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace toolkit {

namespace {

constexpr qreal reach = 3;             // of the blur, in radii
constexpr qreal cellsPerDeviation = 4; // the blur leaves nothing smaller to see

// How far a point is outside of the shape; negative inside.
qreal distance(const ShadowShape &shape, const QPointF &point)
{
    const qreal corner = std::min({shape.cornerRadius, shape.size.width() / 2, shape.size.height() / 2});
    const qreal x = std::abs(point.x() - shape.size.width() / 2) - shape.size.width() / 2 + corner;
    const qreal y = std::abs(point.y() - shape.size.height() / 2) - shape.size.height() / 2 + corner;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - corner;
}

// The shape, one number from 0 to 1 for each cell of a grid over bounds().
std::vector<float> mask(const ShadowShape &shape, const QSize &cells)
{
    const QPointF origin(-reach * shape.radius, -reach * shape.radius);
    const qreal width = shape.bounds().width() / cells.width();
    const qreal height = shape.bounds().height() / cells.height();
    std::vector<float> covers;
    covers.reserve(static_cast<std::size_t>(cells.width()) * static_cast<std::size_t>(cells.height()));
    for (int y = 0; y < cells.height(); ++y) {
        for (int x = 0; x < cells.width(); ++x) {
            const QPointF middle((x + 0.5) * width, (y + 0.5) * height);
            const qreal outside = distance(shape, origin + middle) / std::min(width, height);
            covers.push_back(static_cast<float>(std::clamp(0.5 - outside, 0.0, 1.0)));
        }
    }
    return covers;
}

QImage coloured(const std::vector<float> &covers, const QSize &cells, const QColor &color)
{
    QImage image(cells, QImage::Format_ARGB32_Premultiplied);
    auto cover = covers.begin();
    for (int y = 0; y < cells.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < cells.width(); ++x) {
            const auto alpha = static_cast<int>(std::lround(*cover++ * static_cast<float>(color.alpha())));
            line[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
    }
    return image;
}

QImage blurredShape(const ShadowShape &shape, qreal scale)
{
    const auto bounds = shape.bounds();
    const qreal cell = std::max(1 / scale, shape.radius / cellsPerDeviation);
    const QSize cells(static_cast<int>(std::ceil(bounds.width() / cell)),
                      static_cast<int>(std::ceil(bounds.height() / cell)));
    auto covers = mask(shape, cells);
    GaussianBlur().apply(covers, {cells.width(), cells.height(), 1},
                         shape.radius * cells.width() / bounds.width(),
                         shape.radius * cells.height() / bounds.height());
    return coloured(covers, cells, shape.color);
}

void cutOut(QPainter &painter, const ShadowShape &shape)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF({}, shape.size), shape.cornerRadius, shape.cornerRadius);
}

} // namespace

QRectF ShadowShape::bounds() const
{
    const qreal margin = reach * radius;
    return QRectF({0, offset}, size).adjusted(-margin, -margin, margin, margin);
}

QImage shadowPicture(const ShadowShape &shape, qreal scale)
{
    if (shape.size.isEmpty()) {
        return {};
    }
    const auto bounds = shape.bounds();
    QImage image((bounds.size() * scale).toSize().expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(image.width() / bounds.width(), image.height() / bounds.height());
    painter.translate(-bounds.topLeft());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(bounds, blurredShape(shape, scale));
    cutOut(painter, shape);
    return image;
}

} // namespace toolkit

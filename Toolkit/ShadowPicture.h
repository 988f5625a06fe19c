// The picture of a shadow.
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace toolkit {

// A rounded rectangle at the origin and its shadow. Lengths in points; `radius` is a standard deviation.
struct ShadowShape
{
    QSizeF size;
    qreal cornerRadius = 0;
    qreal radius = 0;
    qreal offset = 0;
    QColor color = Qt::black;

    // What the shadow covers: the shape moved by the offset, with three radii around it.
    [[nodiscard]] QRectF bounds() const;
};

// What is seen of the shadow outside of the shape, for bounds() in device pixels, of which `scale` make a
// point. Null where the shape is empty. Any thread.
[[nodiscard]] QImage shadowPicture(const ShadowShape &shape, qreal scale);

} // namespace toolkit

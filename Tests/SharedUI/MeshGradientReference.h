// The background of blobs, computed pixel by pixel and slowly.
#pragma once

#include <QColor>
#include <QImage>
#include <QSizeF>

#include <vector>

namespace sharedui {

// The picture of a view of `size` points in device pixels, `scale` of which make a point: each pixel sampled
// 3 × 3 times, and blurred in full resolution by a Gaussian that is cut off at four deviations.
[[nodiscard]] QImage meshGradientReference(const QSize &size, double time, const std::vector<QColor> &colors,
                                           double scale = 1);

// The greatest difference of a channel of any pixel; 255 where the sizes differ.
[[nodiscard]] int greatestDifference(const QImage &left, const QImage &right);

} // namespace sharedui

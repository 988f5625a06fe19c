#include "Toolkit/DiagonalBrush.h"

#include <QLinearGradient>

namespace toolkit {

QBrush diagonalBrush(const QRectF &bounds, const QColor &topLeading, const QColor &bottomTrailing)
{
    if (topLeading == bottomTrailing) {
        return topLeading;
    }
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomRight());
    gradient.setColorAt(0, topLeading);
    gradient.setColorAt(1, bottomTrailing);
    return gradient;
}

} // namespace toolkit

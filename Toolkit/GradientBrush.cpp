#include "Toolkit/GradientBrush.h"

#include <QLinearGradient>

namespace toolkit {

namespace {

QBrush brush(const QPointF &start, const QPointF &end, const QColor &first, const QColor &last)
{
    if (first == last) {
        return first;
    }
    QLinearGradient gradient(start, end);
    gradient.setColorAt(0, first);
    gradient.setColorAt(1, last);
    return gradient;
}

} // namespace

QBrush diagonalBrush(const QRectF &bounds, const QColor &topLeading, const QColor &bottomTrailing)
{
    return brush(bounds.topLeft(), bounds.bottomRight(), topLeading, bottomTrailing);
}

QBrush verticalBrush(const QRectF &bounds, const QColor &top, const QColor &bottom)
{
    return brush(bounds.topLeft(), bounds.bottomLeft(), top, bottom);
}

} // namespace toolkit

// The fill that the painted shapes share.
#pragma once

#include <QBrush>

namespace toolkit {

// A brush that runs from one colour to another along the diagonal of bounds, from the top leading to the
// bottom trailing corner. One colour alone makes a plain brush: Qt fills tall gradients on threads that it
// starts for that.
QBrush diagonalBrush(const QRectF &bounds, const QColor &topLeading, const QColor &bottomTrailing);

} // namespace toolkit

// The system's symbols by name, as drawings.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace platform {

// Draws the symbol in one colour, so that its square fills `where`, which is in the painter's coordinates.
// With a weight its strokes are drawn heavier by that much, in sixteenths of the square. The names known are
// those of symbols.cmake, such as "eye.fill"; with another one nothing is drawn, and the answer is false. Any
// thread.
bool drawSymbol(QPainter &painter, const QString &name, const QRectF &where, const QColor &color,
                double weight = 0);

} // namespace platform

// The system's symbols by name, as drawings.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace platform {

// Draws the symbol in one colour, so that its square fills `where`, which is in the painter's coordinates.
// With `isHeavy` its strokes are drawn heavier. The names known are those of symbols.cmake, such as
// "eye.fill"; with another one nothing is drawn, and the answer is false. Any thread.
bool drawSymbol(QPainter &painter, const QString &name, const QRectF &where, const QColor &color,
                bool isHeavy = false);

} // namespace platform

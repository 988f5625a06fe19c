// How GoogleTest shows Qt's values where an expectation fails.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <ostream>

inline void PrintTo(const QString &text, std::ostream *stream)
{
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QColor &color, std::ostream *stream)
{
    *stream << color.name(QColor::HexArgb).toStdString();
}

inline void PrintTo(const QRectF &rect, std::ostream *stream)
{
    *stream << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}

#include "Platform/Symbols/SymbolDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace platform {

namespace {

// The drawings name their colour once, as the colour of the text around them.
QByteArray coloured(QByteArray drawing, const QColor &color, double weight)
{
    auto paint = "fill=\"" + color.name().toLatin1() + '"';
    if (weight > 0) {
        paint += R"( stroke-linejoin="round" stroke=")" + color.name().toLatin1() + R"(" stroke-width=")" +
                 QByteArray::number(weight) + '"';
    }
    return drawing.replace("fill=\"currentColor\"", paint);
}

QByteArray drawingOf(const QString &name)
{
    QFile file(QStringLiteral(":/symbols/") + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

bool drawSymbol(QPainter &painter, const QString &name, const QRectF &where, const QColor &color,
                double weight)
{
    const auto drawing = drawingOf(name);
    if (drawing.isEmpty()) {
        return false;
    }
    painter.save();
    painter.setOpacity(painter.opacity() * color.alphaF());
    QSvgRenderer(coloured(drawing, color, weight)).render(&painter, where);
    painter.restore();
    return true;
}

} // namespace platform

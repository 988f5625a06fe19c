#include "Platform/Symbols/SymbolDrawing.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace platform {

namespace {

// The drawings name their colour once, as the colour of the text around them.
QByteArray coloured(QByteArray drawing, const QColor &color, bool isHeavy)
{
    auto paint = "fill=\"" + color.name().toLatin1() + '"';
    if (isHeavy) {
        paint += " stroke=\"" + color.name().toLatin1() + R"(" stroke-width="0.6" stroke-linejoin="round")";
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
                bool isHeavy)
{
    const auto drawing = drawingOf(name);
    if (drawing.isEmpty()) {
        return false;
    }
    painter.save();
    painter.setOpacity(painter.opacity() * color.alphaF());
    QSvgRenderer(coloured(drawing, color, isHeavy)).render(&painter, where);
    painter.restore();
    return true;
}

} // namespace platform

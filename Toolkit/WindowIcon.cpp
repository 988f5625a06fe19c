#include "App/WindowIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace stirra {

QIcon windowIcon()
{
    QSvgRenderer drawing(QStringLiteral(":/icons/org.stirra.Stirra.svg"));
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) {
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace stirra

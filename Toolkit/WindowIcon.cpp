#include "Toolkit/WindowIcon.h"

#include <QPainter>
#include <QPixmap>
#include <QQuickWindow>
#include <QSvgRenderer>

namespace toolkit {

QIcon windowIcon(const QString &drawing)
{
    QSvgRenderer renderer(drawing);
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) {
        QPixmap picture(side, side);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

void setIconAfterFirstFrame(QQuickWindow &window, const QString &drawing)
{
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&window, drawing] { window.setIcon(windowIcon(drawing)); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace toolkit

// Pictures as they travel to a panel.
#pragma once

#include "Platform/TemplateImage.h"

#include <QByteArray>
#include <QColor>
#include <QDBusArgument>
#include <QList>

namespace platform {

// (iiay): the size in pixels, and 4 bytes a pixel, alpha, red, green, blue, not premultiplied.
struct NotifierPixmap
{
    int width = 0;
    int height = 0;
    QByteArray bytes;

    bool operator==(const NotifierPixmap &) const = default;
};

using NotifierPixmaps = QList<NotifierPixmap>;

// (sa(iiay)ss): an icon's name, its pictures, a title, a text.
struct NotifierToolTip
{
    QString iconName;
    NotifierPixmaps iconPixmap;
    QString title;
    QString text;
};

// One for each representation of the image; the ink may be translucent.
[[nodiscard]] NotifierPixmaps pixmapsOf(const TemplateImage &image, const QColor &ink);

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &toolTip);

// Makes the types known to Qt's bus; as often as wanted.
void registerNotifierTypes();

} // namespace platform

Q_DECLARE_METATYPE(platform::NotifierPixmap)
Q_DECLARE_METATYPE(platform::NotifierToolTip)

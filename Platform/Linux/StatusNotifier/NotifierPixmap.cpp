#include "Platform/Linux/StatusNotifier/NotifierPixmap.h"

#include <QDBusMetaType>

namespace platform {

namespace {

char byte(int value)
{
    return static_cast<char>(static_cast<unsigned char>(value));
}

NotifierPixmap pixmapOf(const TemplateImage::Representation &picture, const QColor &ink)
{
    NotifierPixmap pixmap{picture.width, picture.height, {}};
    pixmap.bytes.reserve(static_cast<qsizetype>(picture.coverage.size()) * 4);
    for (const int coverage : picture.coverage) {
        pixmap.bytes.append(byte(coverage * ink.alpha() / 255))
            .append(byte(ink.red()))
            .append(byte(ink.green()))
            .append(byte(ink.blue()));
    }
    return pixmap;
}

} // namespace

NotifierPixmaps pixmapsOf(const TemplateImage &image, const QColor &ink)
{
    NotifierPixmaps pixmaps;
    for (const auto &picture : image.representations) {
        pixmaps.append(pixmapOf(picture, ink));
    }
    return pixmaps;
}

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierPixmap &pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const NotifierToolTip &toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmap << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, NotifierToolTip &toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmap >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

void registerNotifierTypes()
{
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<NotifierPixmaps>();
    qDBusRegisterMetaType<NotifierToolTip>();
}

} // namespace platform

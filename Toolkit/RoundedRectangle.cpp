#include "Toolkit/RoundedRectangle.h"

#include "Toolkit/GradientBrush.h"

#include <QPainter>

#include <algorithm>

namespace toolkit {

namespace {

// Qt fills what is taller than 64 device pixels on threads that it starts for that, where the brush is a
// gradient.
constexpr qreal bandHeight = 48;

QRectF deviceBand(int index, const QSize &device)
{
    return {0, index * bandHeight, static_cast<qreal>(device.width()), bandHeight};
}

} // namespace

RoundedRectangle::RoundedRectangle(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &RoundedRectangle::appearanceChanged, this, [this] { update(); });
}

void RoundedRectangle::setColor(const QColor &color)
{
    topLeadingColor_ = color;
    bottomTrailingColor_ = color;
    Q_EMIT appearanceChanged();
}

void RoundedRectangle::setStrokeColor(const QColor &color)
{
    strokeTopLeadingColor_ = color;
    strokeBottomTrailingColor_ = color;
    Q_EMIT appearanceChanged();
}

QBrush RoundedRectangle::brush(const QColor &from, const QColor &to) const
{
    const auto bounds = boundingRect();
    return isVertical_ ? verticalBrush(bounds, from, to) : diagonalBrush(bounds, from, to);
}

QPen RoundedRectangle::stroke() const
{
    const bool isSeen = strokeTopLeadingColor_.alpha() > 0 || strokeBottomTrailingColor_.alpha() > 0;
    return strokeWidth_ > 0 && isSeen
               ? QPen(brush(strokeTopLeadingColor_, strokeBottomTrailingColor_), strokeWidth_)
               : QPen(Qt::NoPen);
}

bool RoundedRectangle::hasGradient() const
{
    return topLeadingColor_ != bottomTrailingColor_ || strokeTopLeadingColor_ != strokeBottomTrailingColor_;
}

void RoundedRectangle::paint(QPainter *painter)
{
    const QSize device(painter->device()->width(), painter->device()->height());
    if (!hasGradient() || device.height() <= bandHeight) {
        paintShape(*painter);
        return;
    }
    const auto toItem = painter->deviceTransform().inverted();
    for (int i = 0; i * bandHeight < device.height(); ++i) {
        painter->setClipRect(toItem.mapRect(deviceBand(i, device)));
        paintShape(*painter);
    }
}

void RoundedRectangle::paintShape(QPainter &painter) const
{
    const auto bounds = boundingRect().adjusted(margin_, margin_, -margin_, -margin_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush(topLeadingColor_, bottomTrailingColor_));
    painter.drawRoundedRect(bounds, radius_, radius_);

    const auto inset = strokeWidth_ / 2;
    const auto radius = std::max(radius_ - inset, 0.0);
    painter.setPen(stroke());
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius, radius);
}

} // namespace toolkit

#include "Toolkit/RoundedRectangle.h"

#include "Toolkit/DiagonalBrush.h"

#include <QPainter>

namespace toolkit {

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

QBrush RoundedRectangle::fill() const
{
    return diagonalBrush(boundingRect(), topLeadingColor_, bottomTrailingColor_);
}

QPen RoundedRectangle::stroke() const
{
    return strokeWidth_ > 0 && strokeColor_.alpha() > 0 ? QPen(strokeColor_, strokeWidth_) : QPen(Qt::NoPen);
}

void RoundedRectangle::paint(QPainter *painter)
{
    const auto bounds = boundingRect();
    painter->setPen(Qt::NoPen);
    painter->setBrush(fill());
    painter->drawRoundedRect(bounds, radius_, radius_);

    const auto inset = strokeWidth_ / 2;
    painter->setPen(stroke());
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), radius_ - inset, radius_ - inset);
}

} // namespace toolkit

#include "Toolkit/TrimmedCircle.h"

#include "Toolkit/DiagonalBrush.h"

#include <QPainter>

#include <cmath>

namespace toolkit {

namespace {

constexpr qreal wholeTurn = 360;
constexpr int painterUnitsPerDegree = 16;

int painterAngle(qreal fraction)
{
    return static_cast<int>(std::lround(fraction * wholeTurn * painterUnitsPerDegree));
}

} // namespace

TrimmedCircle::TrimmedCircle(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &TrimmedCircle::geometryChanged, this, &TrimmedCircle::resize);
    connect(this, &TrimmedCircle::appearanceChanged, this, [this] { update(); });
}

void TrimmedCircle::resize()
{
    const auto side = std::ceil(diameter_ + lineWidth_) + 1; // and the soft edge of the line
    setImplicitSize(side, side);
    update();
}

void TrimmedCircle::paint(QPainter *painter)
{
    if (trimTo_ <= trimFrom_) {
        return;
    }
    const QRectF circle(-diameter_ / 2, -diameter_ / 2, diameter_, diameter_);
    const auto brush = diagonalBrush(circle, topLeadingColor_, bottomTrailingColor_);
    painter->translate(width() / 2, height() / 2);
    painter->rotate(turn_);
    painter->setPen(QPen(brush, lineWidth_, Qt::SolidLine, Qt::RoundCap));
    // The painter counts its angles counter-clockwise.
    painter->drawArc(circle, -painterAngle(trimFrom_), -painterAngle(trimTo_ - trimFrom_));
}

} // namespace toolkit

#include "Examples/Gallery/MenuBar/PopoverPlace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace gallery {

namespace {

constexpr int gap = 6; // points between the panel's icon and the popover

struct Spot
{
    QPoint place; // in points
    const QScreen *screen;
};

// A screen's origin is the same in points and in device pixels, its size is not.
Spot spotOf(const QPoint &click)
{
    for (const auto *screen : QGuiApplication::screens()) {
        const QPointF origin = screen->geometry().topLeft();
        const QRectF pixels(origin, QSizeF(screen->geometry().size()) * screen->devicePixelRatio());
        if (!click.isNull() && pixels.contains(click)) {
            return {(origin + (click - origin) / screen->devicePixelRatio()).toPoint(), screen};
        }
    }
    const auto pointer = QCursor::pos();
    const auto *screen = QGuiApplication::screenAt(pointer);
    return {pointer, screen ? screen : QGuiApplication::primaryScreen()};
}

int within(int wanted, int first, int last)
{
    return std::max(first, std::min(wanted, last));
}

} // namespace

QPoint popoverPlace(const QPoint &click, const QSize &size)
{
    const auto spot = spotOf(click);
    const auto area = spot.screen->availableGeometry();
    const bool isUpper = spot.place.y() < spot.screen->geometry().center().y();
    const int y = isUpper ? spot.place.y() + gap : spot.place.y() - gap - size.height();
    return {within(spot.place.x() - size.width() / 2, area.left(), area.right() + 1 - size.width()),
            within(y, area.top(), area.bottom() + 1 - size.height())};
}

} // namespace gallery

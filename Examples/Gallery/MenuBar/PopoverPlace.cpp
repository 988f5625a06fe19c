#include "Examples/Gallery/MenuBar/PopoverPlace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace gallery {

namespace {

constexpr int gap = 6; // points between the popover and the clicked place, and the edges of the screen

struct Spot
{
    QPoint place; // in points
    const QScreen *screen;
};

// Its right and lower edges are the next screen's.
bool isOn(const QScreen &screen, const QPointF &place)
{
    const QRectF area = screen.geometry();
    return place.x() >= area.left() && place.x() < area.right() && place.y() >= area.top() &&
           place.y() < area.bottom();
}

// A screen's origin is the same in points and in device pixels, its size is not.
Spot spotOf(const QPoint &click)
{
    for (const auto *screen : QGuiApplication::screens()) {
        const QPointF origin = screen->geometry().topLeft();
        const QPointF place = origin + (click - origin) / screen->devicePixelRatio();
        if (!click.isNull() && isOn(*screen, place)) {
            return {place.toPoint(), screen};
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
    if (!spot.screen) {
        return spot.place;
    }
    const auto area = spot.screen->availableGeometry().adjusted(gap, gap, -gap, -gap);
    const bool isUpper = spot.place.y() < spot.screen->geometry().center().y();
    const int y = isUpper ? spot.place.y() + gap : spot.place.y() - gap - size.height();
    return {within(spot.place.x() - size.width() / 2, area.left(), area.right() + 1 - size.width()),
            within(y, area.top(), area.bottom() + 1 - size.height())};
}

} // namespace gallery

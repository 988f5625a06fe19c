#include "SharedUI/AppLaunchContainer/SavedFrame.h"

#include "Toolkit/WindowGeometry.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace sharedui {

namespace {

using platform::PropertyDictionary;
using platform::PropertyValue;

constexpr std::int64_t farthest = 32'767;
constexpr QSize hold(64, 24); // what a pointer needs to take hold of a window

std::optional<int> number(const PropertyDictionary &entries, std::string_view key, std::int64_t lowest)
{
    const auto found = entries.find(key);
    const auto *value = found == entries.end() ? nullptr : std::get_if<std::int64_t>(&found->second);
    if (!value || *value < lowest || *value > farthest) {
        return std::nullopt;
    }
    return static_cast<int>(*value);
}

int area(const QRect &rectangle)
{
    return rectangle.isEmpty() ? 0 : rectangle.width() * rectangle.height();
}

bool canBeHeld(const QRect &geometry, const QList<QRect> &screens)
{
    const QRect upperEdge(geometry.topLeft(), QSize(geometry.width(), hold.height()));
    return std::ranges::any_of(screens, [&](const QRect &screen) {
        const auto seen = upperEdge & screen;
        return seen.width() >= hold.width() && seen.height() == hold.height();
    });
}

QRect movedInto(const QRect &screen, QRect geometry)
{
    geometry.moveRight(std::min(geometry.right(), screen.right()));
    geometry.moveBottom(std::min(geometry.bottom(), screen.bottom()));
    geometry.moveLeft(std::max(geometry.left(), screen.left()));
    geometry.moveTop(std::max(geometry.top(), screen.top()));
    return geometry;
}

QSize sizeOfAll(const QList<QRect> &screens)
{
    QRect all;
    for (const auto &screen : screens) {
        all |= screen;
    }
    return all.size();
}

} // namespace

PropertyValue storedFrame(const SavedFrame &frame)
{
    PropertyDictionary entries{{"width", std::int64_t{frame.size.width()}},
                               {"height", std::int64_t{frame.size.height()}}};
    if (frame.position) {
        entries.emplace("x", std::int64_t{frame.position->x()});
        entries.emplace("y", std::int64_t{frame.position->y()});
    }
    return {std::move(entries)};
}

std::optional<SavedFrame> frameFrom(const std::optional<PropertyValue> &stored)
{
    const auto *entries = stored ? std::get_if<PropertyDictionary>(&*stored) : nullptr;
    if (!entries) {
        return std::nullopt;
    }
    const auto width = number(*entries, "width", 1);
    const auto height = number(*entries, "height", 1);
    if (!width || !height) {
        return std::nullopt;
    }
    const auto x = number(*entries, "x", -farthest);
    const auto y = number(*entries, "y", -farthest);
    return SavedFrame{x && y ? std::optional(QPoint(*x, *y)) : std::nullopt, QSize(*width, *height)};
}

QRect restoredGeometry(const SavedFrame &frame, const QList<QRect> &screens, QSize smallestSize)
{
    const auto size = frame.size.boundedTo(sizeOfAll(screens)).expandedTo(smallestSize);
    const QRect geometry(frame.position.value_or(QPoint()), size);
    if (frame.position && canBeHeld(geometry, screens)) {
        return geometry;
    }
    const auto share = [&](const QRect &screen) { return area(screen & geometry); };
    const auto screen = std::ranges::max(screens, {}, share); // the first of equals
    if (!frame.position || share(screen) == 0) {
        return toolkit::centredGeometry(screens.first(), size, smallestSize);
    }
    return movedInto(screen, geometry);
}

} // namespace sharedui

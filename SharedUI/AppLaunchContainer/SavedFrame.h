// A window's frame as it is stored, and as it fits the screens of today. Any thread.
#pragma once

#include "Platform/PropertyValue.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace sharedui {

// The content area, without the border that the desktop draws, in points of the desktop's common
// coordinates. Without a position where no program is told it.
struct SavedFrame
{
    std::optional<QPoint> position;
    QSize size;

    bool operator==(const SavedFrame &) const = default;
};

// A dictionary of whole numbers: "width" and "height", and "x" and "y" where there is a position.
[[nodiscard]] platform::PropertyValue storedFrame(const SavedFrame &frame);

// Nothing where the value is no such dictionary, a size is not from 1 to 32,767 (more than X11 has), or a
// coordinate is farther away than that. Other entries are ignored; a position that is not whole is none.
[[nodiscard]] std::optional<SavedFrame> frameFrom(const std::optional<platform::PropertyValue> &stored);

// Where the window goes today: as it was where one could still take hold of its upper edge, else moved into
// the screen that most of it is on, else into the middle of the first screen; never larger than all screens
// together and never below the smallest size. `screens` are the areas that they leave to windows, the
// primary one first. REQUIRES: there is one.
[[nodiscard]] QRect restoredGeometry(const SavedFrame &frame, const QList<QRect> &screens,
                                     QSize smallestSize);

} // namespace sharedui

// Where a window goes on a screen.
#pragma once

#include <QRect>
#include <QSize>

namespace toolkit {

// The content area of a new window: in the middle of the screen's available area, all in points. A screen
// that is smaller than the window gets as much of it as fits, and no less than the smallest size.
[[nodiscard]] QRect centredGeometry(const QRect &available, QSize contentSize, QSize smallestSize);

} // namespace toolkit

// Where a popover goes.
#pragma once

#include <QPoint>
#include <QSize>

namespace gallery {

// The upper left corner, in points, of a window of that size that hangs on the clicked place of a panel:
// below it in the upper half of the screen, else above, and whole on the screen with a gap around. The click
// is in device pixels; 0, 0, which is what panels say that do not tell, is where the pointer is.
[[nodiscard]] QPoint popoverPlace(const QPoint &click, const QSize &size);

} // namespace gallery

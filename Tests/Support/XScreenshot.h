// What is on a display's screen.
#pragma once

#include "Tests/Support/XClient.h"

#include <QImage>
#include <QRect>

namespace testsupport {

// The pixels of a part of the root window, windows above each other as the user sees them; an empty picture
// where the part is not on the screen. REQUIRES: a screen of 24 bits' depth.
[[nodiscard]] QImage screenshot(const XClient &x, const QRect &area);

} // namespace testsupport

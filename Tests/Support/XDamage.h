// What is painted in a window.
#pragma once

#include "Tests/Support/XClient.h"

#include <QRect>

#include <vector>

namespace testsupport {

// Reports every rectangle painted in the window from the moment it is made. One thread at a time.
class XDamage
{
public:
    // REQUIRES: the server has the DAMAGE extension.
    XDamage(const QString &display, xcb_window_t window);

    // What was painted so far, in pixels of the window.
    [[nodiscard]] const std::vector<QRect> &rects();

private:
    XClient client_;
    std::uint8_t event_ = 0;
    std::vector<QRect> rects_;
};

} // namespace testsupport

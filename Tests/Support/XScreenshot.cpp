#include "Tests/Support/XScreenshot.h"

namespace testsupport {

QImage screenshot(const XClient &x, const QRect &area)
{
    constexpr std::uint32_t everyPlane = 0xffffffff;
    const auto width = static_cast<std::uint16_t>(area.width());
    const auto height = static_cast<std::uint16_t>(area.height());
    const auto reply = xAnswer(xcb_get_image_reply, x.get(),
                               xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(),
                                             static_cast<std::int16_t>(area.x()),
                                             static_cast<std::int16_t>(area.y()), width, height, everyPlane));
    if (!reply) {
        return {};
    }
    return QImage(xcb_get_image_data(reply.get()), width, height, QImage::Format_RGB32).copy();
}

} // namespace testsupport

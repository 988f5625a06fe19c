#include "Tests/Support/XDamage.h"

#include <xcb/damage.h>

#include <bit>

namespace testsupport {

XDamage::XDamage(const QString &display, xcb_window_t window)
    : client_(display)
{
    auto *x = client_.get();
    event_ =
        static_cast<std::uint8_t>(xcb_get_extension_data(x, &xcb_damage_id)->first_event + XCB_DAMAGE_NOTIFY);
    xAnswer(xcb_damage_query_version_reply, x, xcb_damage_query_version(x, 1, 1));
    xcb_damage_create(x, xcb_generate_id(x), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    // What the window shows already is reported first.
    (void)rects();
    rects_.clear();
}

const std::vector<QRect> &XDamage::rects()
{
    client_.sync();
    while (const auto event = XAnswer<xcb_generic_event_t>(xcb_poll_for_event(client_.get()))) {
        if ((event->response_type & 0x7F) == event_) {
            const auto &area = std::bit_cast<const xcb_damage_notify_event_t *>(event.get())->area;
            rects_.emplace_back(area.x, area.y, area.width, area.height);
        }
    }
    return rects_;
}

} // namespace testsupport

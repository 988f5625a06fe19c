#include "Platform/Linux/Idle/IdleClocks.h"
#include "Platform/Linux/Idle/PolledIdleClock.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/X11/XConnection.h"

#include <xcb/screensaver.h>

namespace platform {

namespace {

PolledIdleClock::Reading millisecondsIdle(const XConnection &x)
{
    const auto reply =
        xReply(xcb_screensaver_query_info_reply, x.get(),
               xcb_screensaver_query_info_unchecked(x.get(), static_cast<xcb_drawable_t>(x.rootWindow())));
    return reply ? PolledIdleClock::Reading(reply->ms_since_user_input) : std::nullopt;
}

} // namespace

std::unique_ptr<IdleClock> openXScreenSaverClock()
{
    if (isWaylandSession()) {
        return nullptr;
    }
    const auto x = std::make_shared<XConnection>();
    const auto *extension = x->isOpen() ? xcb_get_extension_data(x->get(), &xcb_screensaver_id) : nullptr;
    if (!extension || !extension->present) {
        return nullptr;
    }
    return std::make_unique<PolledIdleClock>(QStringLiteral("XScreenSaver"),
                                             [x] { return millisecondsIdle(*x); });
}

} // namespace platform

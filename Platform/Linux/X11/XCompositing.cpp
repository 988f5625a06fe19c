#include "Platform/Linux/X11/XCompositing.h"

#include "Platform/Linux/X11/XConnection.h"

#include <QGuiApplication>

#include <string_view>

namespace platform {

// Whoever does it holds the selection of that name, one for each screen. Toolkits of today know one screen.
bool isXComposited()
{
    constexpr std::string_view name = "_NET_WM_CM_S0";
    auto *x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11) {
        return false;
    }
    auto *x = x11->connection();
    const auto atom =
        xReply(xcb_intern_atom_reply, x,
               xcb_intern_atom_unchecked(x, 0, static_cast<std::uint16_t>(name.size()), name.data()));
    if (!atom) {
        return false;
    }
    const auto owner =
        xReply(xcb_get_selection_owner_reply, x, xcb_get_selection_owner_unchecked(x, atom->atom));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

} // namespace platform

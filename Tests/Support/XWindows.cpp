#include "Tests/Support/XWindows.h"

#include <algorithm>

namespace testsupport {

namespace {

constexpr std::uint32_t sourceIsPager = 2;
constexpr std::uint32_t iconicState = 3;
constexpr std::uint32_t hintsNameSmallestSize = 1U << 4;

// The first value of _NET_MOVERESIZE_WINDOW.
constexpr std::uint32_t changesX = 1U << 8;
constexpr std::uint32_t changesY = 1U << 9;
constexpr std::uint32_t changesWidth = 1U << 10;
constexpr std::uint32_t changesHeight = 1U << 11;
constexpr std::uint32_t pagerChanges = sourceIsPager << 12;

} // namespace

std::vector<xcb_window_t> managedWindows(const XClient &x)
{
    return x.cardinals(x.root(), "_NET_CLIENT_LIST_STACKING");
}

std::vector<xcb_window_t> windowsTitled(const XClient &x, const QString &title)
{
    auto windows = managedWindows(x);
    std::erase_if(windows, [&](xcb_window_t window) { return titleOf(x, window) != title; });
    return windows;
}

std::vector<xcb_window_t> mappedWindows(const XClient &x)
{
    const auto reply = xAnswer(xcb_query_tree_reply, x.get(), xcb_query_tree(x.get(), x.root()));
    if (!reply) {
        return {};
    }
    const auto *children = xcb_query_tree_children(reply.get());
    std::vector<xcb_window_t> windows(children, children + reply->children_len);
    std::erase_if(windows, [&x](xcb_window_t window) { return !isViewable(x, window); });
    return windows;
}

std::vector<xcb_window_t> mappedWindowsTitled(const XClient &x, const QString &title)
{
    auto windows = mappedWindows(x);
    std::erase_if(windows, [&](xcb_window_t window) { return titleOf(x, window) != title; });
    return windows;
}

QString titleOf(const XClient &x, xcb_window_t window)
{
    const auto title = x.bytes(window, "_NET_WM_NAME");
    return QString::fromUtf8(title.isEmpty() ? x.bytes(window, "WM_NAME") : title);
}

QRect clientArea(const XClient &x, xcb_window_t window)
{
    const auto size = xAnswer(xcb_get_geometry_reply, x.get(), xcb_get_geometry(x.get(), window));
    const auto place = xAnswer(xcb_translate_coordinates_reply, x.get(),
                               xcb_translate_coordinates(x.get(), window, x.root(), 0, 0));
    return size && place ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

QMargins frameOf(const XClient &x, xcb_window_t window)
{
    const auto widths = x.cardinals(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    if (widths.size() != 4) {
        return {};
    }
    return {static_cast<int>(widths[0]), static_cast<int>(widths[2]), static_cast<int>(widths[1]),
            static_cast<int>(widths[3])};
}

QSize smallestSize(const XClient &x, xcb_window_t window)
{
    const auto hints = x.cardinals(window, "WM_NORMAL_HINTS");
    if (hints.size() < 7 || !(hints[0] & hintsNameSmallestSize)) {
        return {};
    }
    return {static_cast<int>(hints[5]), static_cast<int>(hints[6])};
}

bool isViewable(const XClient &x, xcb_window_t window)
{
    const auto reply =
        xAnswer(xcb_get_window_attributes_reply, x.get(), xcb_get_window_attributes(x.get(), window));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool isPointerTaken(const XClient &x)
{
    const auto reply = xAnswer(xcb_grab_pointer_reply, x.get(),
                               xcb_grab_pointer(x.get(), 0, x.root(), 0, XCB_GRAB_MODE_ASYNC,
                                                XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME));
    xcb_ungrab_pointer(x.get(), XCB_CURRENT_TIME);
    x.sync();
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

xcb_window_t activeWindow(const XClient &x)
{
    const auto windows = x.cardinals(x.root(), "_NET_ACTIVE_WINDOW");
    return windows.empty() ? xcb_window_t{XCB_WINDOW_NONE} : windows.front();
}

pid_t processOf(const XClient &x, xcb_window_t window)
{
    const auto values = x.cardinals(window, "_NET_WM_PID");
    return values.empty() ? -1 : static_cast<pid_t>(values.front());
}

void activate(const XClient &x, xcb_window_t window)
{
    x.tellWindowManager(window, "_NET_ACTIVE_WINDOW", {sourceIsPager, XCB_CURRENT_TIME, 0, 0, 0});
}

void close(const XClient &x, xcb_window_t window)
{
    x.tellWindowManager(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, sourceIsPager, 0, 0, 0});
}

void minimise(const XClient &x, xcb_window_t window)
{
    x.tellWindowManager(window, "WM_CHANGE_STATE", {iconicState, 0, 0, 0, 0});
}

void resize(const XClient &x, xcb_window_t window, QSize size)
{
    x.tellWindowManager(window, "_NET_MOVERESIZE_WINDOW",
                        {pagerChanges | changesWidth | changesHeight, 0, 0,
                         static_cast<std::uint32_t>(size.width()),
                         static_cast<std::uint32_t>(size.height())});
}

void move(const XClient &x, xcb_window_t window, QPoint place)
{
    x.tellWindowManager(window, "_NET_MOVERESIZE_WINDOW",
                        {pagerChanges | changesX | changesY, static_cast<std::uint32_t>(place.x()),
                         static_cast<std::uint32_t>(place.y()), 0, 0});
}

} // namespace testsupport

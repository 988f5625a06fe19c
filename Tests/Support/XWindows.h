// The windows of a display, as a window manager and a pager see them.
#pragma once

#include "Tests/Support/XClient.h"

#include <QRect>

namespace testsupport {

// What is on the screen, bottom first: the window manager's list of the windows that programs opened.
[[nodiscard]] std::vector<xcb_window_t> managedWindows(const XClient &x);
// Those of them with exactly this title.
[[nodiscard]] std::vector<xcb_window_t> windowsTitled(const XClient &x, const QString &title);
// Every window that lies on the root window and is mapped, menus and pop-ups too.
[[nodiscard]] std::vector<xcb_window_t> mappedWindows(const XClient &x);
// Those of them with exactly this title.
[[nodiscard]] std::vector<xcb_window_t> mappedWindowsTitled(const XClient &x, const QString &title);
[[nodiscard]] QString titleOf(const XClient &x, xcb_window_t window);

// The window's client area on the root window, without the frame; the frame's widths.
[[nodiscard]] QRect clientArea(const XClient &x, xcb_window_t window);
[[nodiscard]] QMargins frameOf(const XClient &x, xcb_window_t window);
// The smallest size that the window asks its window manager for; invalid where it asks for none.
[[nodiscard]] QSize smallestSize(const XClient &x, xcb_window_t window);
// Whether it is mapped and so are all its parents.
[[nodiscard]] bool isViewable(const XClient &x, xcb_window_t window);

// Whether a program has the pointer to itself, as one with an open menu does, or a button is held.
[[nodiscard]] bool isPointerTaken(const XClient &x);

[[nodiscard]] xcb_window_t activeWindow(const XClient &x);
[[nodiscard]] pid_t processOf(const XClient &x, xcb_window_t window);

// What a user asks of the window manager.
void activate(const XClient &x, xcb_window_t window);
void close(const XClient &x, xcb_window_t window);
void minimise(const XClient &x, xcb_window_t window);
// The new client area; the window manager may give less or more.
void resize(const XClient &x, xcb_window_t window, QSize size);
void move(const XClient &x, xcb_window_t window, QPoint place);

} // namespace testsupport

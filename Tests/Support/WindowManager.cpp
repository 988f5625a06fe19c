#include "Tests/Support/WindowManager.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XClient.h"

namespace testsupport {

namespace {

xcb_window_t makeUnseenWindow(const XClient &x)
{
    const auto window = xcb_generate_id(x.get());
    xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    return window;
}

// A window manager is on the display some time before it handles requests, and a window that is shown in
// between may stay unmanaged.
bool answers(const XClient &x, xcb_window_t window)
{
    if (x.cardinals(x.root(), "_NET_SUPPORTING_WM_CHECK").empty()) {
        return false;
    }
    x.tellWindowManager(window, "_NET_REQUEST_FRAME_EXTENTS", {});
    return !x.cardinals(window, "_NET_FRAME_EXTENTS").empty();
}

} // namespace

WindowManager::WindowManager(const PrivateRuntime &runtime)
    : process_(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")}, runtime.environment())
{
    const XClient x(runtime.environment().value(QStringLiteral("DISPLAY")));
    if (x.isOpen()) {
        const auto window = makeUnseenWindow(x);
        isOpen_ = eventually([&] { return answers(x, window); });
    }
}

} // namespace testsupport

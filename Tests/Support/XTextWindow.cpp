#include "Tests/Support/XTextWindow.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <string_view>

namespace testsupport {

namespace {

constexpr std::uint32_t recordedEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                         XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                         XCB_EVENT_MASK_POINTER_MOTION;
constexpr std::uint16_t width = 200;
constexpr std::uint16_t height = 100;
constexpr std::string_view title = "Other program";

} // namespace

XTextWindow::XTextWindow(const QString &display)
    : client_(display)
{
    if (!client_.isOpen()) {
        return;
    }
    window_ = xcb_generate_id(client_.get());
    const std::array values{client_.screen().white_pixel, recordedEvents};
    xcb_create_window(client_.get(), XCB_COPY_FROM_PARENT, window_, client_.root(), 0, 0, width, height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, client_.screen().root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        title.size(), title.data());
    xcb_map_window(client_.get(), window_);
    client_.sync();
}

bool XTextWindow::takeFocus() const
{
    if (!eventually([this] { return isViewable(client_, window_); })) {
        return false;
    }
    if (client_.cardinals(client_.root(), "_NET_SUPPORTING_WM_CHECK").empty()) {
        xcb_set_input_focus(client_.get(), XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    } else {
        activate(client_, window_);
    }
    return eventually([this] { return hasFocus(); });
}

bool XTextWindow::hasFocus() const
{
    const auto reply = xAnswer(xcb_get_input_focus_reply, client_.get(), xcb_get_input_focus(client_.get()));
    return reply && reply->focus == window_;
}

const std::vector<XTextWindow::Event> &XTextWindow::events()
{
    while (const auto event = XAnswer<xcb_generic_event_t>(xcb_poll_for_event(client_.get()))) {
        const auto type = static_cast<std::uint8_t>(event->response_type & 0x7f);
        if (type >= XCB_KEY_PRESS && type <= XCB_MOTION_NOTIFY) {
            // Key, button and motion events are laid out alike.
            const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(*event); // NOLINT
            events_.push_back({type, key.detail, key.time});
        }
    }
    return events_;
}

void XTextWindow::clear()
{
    static_cast<void>(events());
    events_.clear();
}

} // namespace testsupport

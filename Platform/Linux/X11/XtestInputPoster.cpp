#include "Platform/Linux/X11/XtestInputPoster.h"

#include "Platform/Linux/PointerPixel.h"
#include "Platform/Linux/X11/SilentKeys.h"
#include "Platform/Linux/X11/Xwayland.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <QTimer>

#include <chrono>
#include <cstdlib>

namespace platform {

namespace {

constexpr std::uint8_t buttonScrollLeft = 6;
constexpr std::uint8_t buttonScrollRight = 7;
constexpr std::int64_t mostNotches = 100;
// Programs were done after 5 ms; the return of a scroll comes after 100 ms.
constexpr std::chrono::milliseconds deviceChangeTime(20);

} // namespace

std::unique_ptr<InputPoster> XtestInputPoster::create(Obstacle &why)
{
    std::unique_ptr<XtestInputPoster> poster(new XtestInputPoster);
    if (!poster->connection_.isOpen()) {
        why = {QStringLiteral("No X server answers."), QStringLiteral("Start it in an X11 session.")};
        return nullptr;
    }
    if (!poster->hasXtest()) {
        why = {QStringLiteral("The X server lacks the XTEST extension."),
               QStringLiteral("Start the X server with XTEST.")};
        return nullptr;
    }
    if (isXwayland(poster->connection_)) {
        why = {QStringLiteral("The X server is Xwayland: what is posted to it reaches X programs alone."),
               QStringLiteral("Start it with the WAYLAND_DISPLAY of the session.")};
        return nullptr;
    }
    poster->prepareConnection();
    return poster;
}

bool XtestInputPoster::hasXtest()
{
    const auto *extension = xcb_get_extension_data(connection_.get(), &xcb_test_id);
    return extension && extension->present;
}

void XtestInputPoster::prepareConnection()
{
    auto *x = connection_.get();
    // Another program that grabs the server would otherwise hold up the main loop for as long as it likes.
    xcb_test_grab_control(x, 1);
    const auto *input = xcb_get_extension_data(x, &xcb_input_id);
    if (input && input->present) {
        xReply(xcb_input_xi_query_version_reply, x, xcb_input_xi_query_version_unchecked(x, 2, 2));
    }
}

std::optional<PointerLocation> XtestInputPoster::pointerLocation()
{
    auto *x = connection_.get();
    const auto reply =
        xReply(xcb_query_pointer_reply, x, xcb_query_pointer_unchecked(x, connection_.rootWindow()));
    if (!reply) {
        return std::nullopt;
    }
    return PointerLocation{static_cast<double>(reply->root_x), static_cast<double>(reply->root_y)};
}

bool XtestInputPoster::post(const InputEvent &event)
{
    const bool isMade = std::visit([this](const auto &kind) { return postEvent(kind); }, event);
    connection_.flush();
    return isMade && isOpen();
}

bool XtestInputPoster::postEvent(const MouseMoved &event)
{
    const auto x = pointerPixel(event.location.x);
    const auto y = pointerPixel(event.location.y);
    if (!x || !y) {
        return false;
    }
    queueFakeInput(XCB_MOTION_NOTIFY, 0, *x, *y);
    return true;
}

bool XtestInputPoster::postEvent(const KeyEvent &event)
{
    return event.isDown
               ? heldKey_.press(event.virtualKeyCode, silentKeyCode(connection_, event.virtualKeyCode))
               : sendPressAndRelease(event);
}

bool XtestInputPoster::sendPressAndRelease(const KeyEvent &release)
{
    const auto carrier = heldKey_.release(release.virtualKeyCode);
    if (!carrier) {
        return false;
    }
    const auto keyCode = static_cast<xcb_keycode_t>(*carrier);
    queueFakeInput(XCB_KEY_PRESS, keyCode);
    queueFakeInput(XCB_KEY_RELEASE, keyCode);
    return true;
}

bool XtestInputPoster::postEvent(const ScrollPixels &event)
{
    if (scrolledPixels_ == 0) {
        beginScroll();
    }
    scrolledPixels_ += event.dy;
    if (!scrollAxis_) {
        queueScrollNotches(event.dy);
    } else if (scrollAxis_->isCurrent) {
        queueScroll(connection_, *scrollAxis_, event.dy);
    } else {
        scrollLater(event.dy);
    }
    return true;
}

// Programs learn an axis's position from the first event that has it, after the pointer came into their
// window or changed to another device, and scroll by the difference to the next (GTK 3 and 4). The first
// event therefore changes nothing. A touchpad sends the same when the fingers are lifted.
void XtestInputPoster::beginScroll()
{
    scrollAxis_ = findScrollAxis(connection_);
    if (scrollAxis_) {
        queueScroll(connection_, *scrollAxis_, 0);
    }
}

// Others ask the server for the position when the pointer changes to another device (Qt): they must have done
// so before the axis moves.
void XtestInputPoster::scrollLater(std::int32_t pixels)
{
    QTimer::singleShot(deviceChangeTime, Qt::PreciseTimer, &laterScrolls_,
                       [this, axis = *scrollAxis_, pixels] {
                           queueScroll(connection_, axis, pixels);
                           connection_.flush();
                       });
}

void XtestInputPoster::queueScrollNotches(std::int32_t notches)
{
    const auto button = notches > 0 ? buttonScrollRight : buttonScrollLeft;
    const auto count = std::min(std::abs(std::int64_t{notches}), mostNotches);
    for (std::int64_t i = 0; i < count; ++i) {
        queueFakeInput(XCB_BUTTON_PRESS, button);
        queueFakeInput(XCB_BUTTON_RELEASE, button);
    }
}

void XtestInputPoster::queueFakeInput(std::uint8_t type, std::uint8_t detail, std::int16_t x, std::int16_t y)
{
    xcb_test_fake_input(connection_.get(), type, detail, XCB_CURRENT_TIME, connection_.rootWindow(), x, y, 0);
}

} // namespace platform

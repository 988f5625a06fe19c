#include "Platform/Linux/Wayland/WlrootsInputPoster.h"

#include "Platform/Linux/Wayland/WaylandTime.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-client-protocol.h>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(200);
constexpr std::int32_t mostPixels = 1 << 20;

constexpr std::array needed{&zwlr_virtual_pointer_manager_v1_interface,
                            &zwp_virtual_keyboard_manager_v1_interface, &wl_seat_interface};

// Of what is needed, the first that is not offered; nothing where all is.
const wl_interface *missingOf(const WaylandGlobals &globals)
{
    const auto isMissing = [&globals](const auto *interface) { return !globals.offers(interface->name); };
    const auto missing = std::ranges::find_if(needed, isMissing);
    return missing == needed.end() ? nullptr : *missing;
}

Obstacle missing(const wl_interface &interface)
{
    return {QStringLiteral("The compositor does not offer %1.").arg(QString::fromLatin1(interface.name)),
            QStringLiteral("Use one of the ways below, or a compositor that is built on wlroots.")};
}

Obstacle silence()
{
    return {QStringLiteral("The Wayland compositor accepts a connection but does not answer."),
            QStringLiteral("Wait until the desktop responds again.")};
}

} // namespace

bool WlrootsInputPoster::isOffered()
{
    WaylandConnection connection;
    if (!connection.isOpen()) {
        return false;
    }
    const WaylandGlobals globals(connection);
    return connection.roundTrip(WaylandConnection::Clock::now() + patience) && !missingOf(globals);
}

std::unique_ptr<InputPoster> WlrootsInputPoster::create(Obstacle &why)
{
    std::unique_ptr<WlrootsInputPoster> poster(new WlrootsInputPoster);
    const auto obstacle = poster->open();
    if (obstacle != Obstacle()) {
        why = obstacle;
        return nullptr;
    }
    poster->connection_.watch();
    return poster;
}

WlrootsInputPoster::WlrootsInputPoster() = default;

WlrootsInputPoster::~WlrootsInputPoster() = default;

Obstacle WlrootsInputPoster::open()
{
    if (!connection_.isOpen()) {
        return {QStringLiteral("No Wayland compositor answers."),
                QStringLiteral("Start it in a Wayland session.")};
    }
    const auto deadline = WaylandConnection::Clock::now() + patience;
    globals_.emplace(connection_);
    if (!connection_.roundTrip(deadline)) {
        return silence();
    }
    if (const auto *interface = missingOf(*globals_)) {
        return missing(*interface);
    }
    auto seat = globals_->bind<wl_seat>(wl_seat_interface, SeatKeyboard::newestVersion);
    auto pointers =
        globals_->bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface, 1);
    auto keyboards =
        globals_->bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface, 1);
    seat_.emplace(std::move(seat));
    keyboard_.emplace(std::move(keyboards), *seat_);
    pointer_.reset(zwlr_virtual_pointer_manager_v1_create_virtual_pointer(pointers.get(), seat_->seat()));
    // One for the seat's capabilities, one for the keymap that is asked for thereupon.
    return connection_.roundTrip(deadline) && connection_.roundTrip(deadline) ? Obstacle() : silence();
}

Obstacle WlrootsInputPoster::obstacle() const
{
    if (isOpen()) {
        return {};
    }
    return {QStringLiteral("The compositor ended the connection or took back what it offered."),
            QStringLiteral("None is needed: every action tries again.")};
}

std::optional<PointerLocation> WlrootsInputPoster::pointerLocation()
{
    connection_.drain();
    return isOpen() ? std::optional(virtualPointer_.location()) : std::nullopt;
}

bool WlrootsInputPoster::post(const InputEvent &event)
{
    connection_.drain();
    return isOpen() && std::visit([this](const auto &kind) { return postEvent(kind); }, event) &&
           connection_.flush();
}

bool WlrootsInputPoster::postEvent(const MouseMoved &event)
{
    const auto step = virtualPointer_.stepTo(event.location);
    if (!step) {
        return false;
    }
    zwlr_virtual_pointer_v1_motion(pointer_.get(), waylandTime(), wl_fixed_from_double(step->dx),
                                   wl_fixed_from_double(step->dy));
    zwlr_virtual_pointer_v1_frame(pointer_.get());
    virtualPointer_.advance(*step);
    return true;
}

bool WlrootsInputPoster::postEvent(const KeyEvent &event)
{
    if (event.isDown) {
        return heldKey_.press(event.virtualKeyCode, keyboard_->silentKeys().silentKey(event.virtualKeyCode));
    }
    const auto carrier = heldKey_.release(event.virtualKeyCode);
    return carrier && keyboard_->type(*carrier);
}

// Of the sources that scroll by pixels, views let go on scrolling by themselves what a finger began.
bool WlrootsInputPoster::postEvent(const ScrollPixels &event)
{
    const auto pixels = std::clamp(event.dy, -mostPixels, mostPixels);
    zwlr_virtual_pointer_v1_axis(pointer_.get(), waylandTime(), WL_POINTER_AXIS_VERTICAL_SCROLL,
                                 wl_fixed_from_int(pixels));
    zwlr_virtual_pointer_v1_axis_source(pointer_.get(), WL_POINTER_AXIS_SOURCE_CONTINUOUS);
    zwlr_virtual_pointer_v1_frame(pointer_.get());
    return true;
}

} // namespace platform

#include "Platform/Linux/SessionSilentKeys.h"

#include "Platform/Linux/SilentKeyChoice.h"
#include "Platform/Linux/Wayland/SeatSilentKeys.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"
#include "Platform/Linux/Wayland/WaylandSocket.h"
#include "Platform/Linux/X11/SilentKeys.h"

#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds patience(200);

// Follows the keymap of the compositor's seat.
class CompositorKeymap
{
public:
    CompositorKeymap()
    {
        if (!connection_.isOpen()) {
            return;
        }
        const auto deadline = WaylandConnection::Clock::now() + patience;
        globals_.emplace(connection_);
        if (!connection_.roundTrip(deadline)) {
            return;
        }
        auto seat = globals_->bind<wl_seat>(wl_seat_interface, SeatKeyboard::newestVersion);
        if (!seat) {
            return;
        }
        seat_.emplace(std::move(seat));
        // One for the seat's capabilities, one for the keymap that is asked for thereupon.
        if (connection_.roundTrip(deadline) && connection_.roundTrip(deadline)) {
            keys_.emplace(*seat_);
            connection_.watch();
        }
    }

    [[nodiscard]] bool isOpen() const
    {
        return connection_.isOpen() && keys_ && !globals_->isAnythingBoundGone();
    }

    std::optional<std::uint16_t> silentKey(std::uint16_t virtualKeyCode)
    {
        connection_.drain();
        return keys_->silentKey(virtualKeyCode);
    }

private:
    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    std::optional<SeatKeyboard> seat_;
    std::optional<SeatSilentKeys> keys_;
};

class SessionKeymap
{
public:
    std::optional<std::uint16_t> silentKey(std::uint16_t virtualKeyCode)
    {
        reopen();
        if (compositor_) {
            return compositor_->silentKey(virtualKeyCode);
        }
        if (x_ && x_->isOpen()) {
            const auto code = silentKeyCode(*x_, virtualKeyCode);
            return code ? std::optional<std::uint16_t>(*code - xkbCodeOfEvdev) : std::nullopt;
        }
        return chooseSilentKey(virtualKeyCode, [](std::uint16_t /*key*/) { return false; });
    }

private:
    void reopen()
    {
        if (compositor_ && !compositor_->isOpen()) {
            compositor_.reset();
        }
        if (compositor_ || (x_ && x_->isOpen())) {
            return;
        }
        if (isWaylandSession()) {
            compositor_.emplace();
            if (!compositor_->isOpen()) {
                compositor_.reset();
            }
        } else {
            x_.emplace();
        }
    }

    std::optional<CompositorKeymap> compositor_;
    std::optional<XConnection> x_;
};

} // namespace

SilentKeySource sessionSilentKeys()
{
    return [keymap = std::make_shared<SessionKeymap>()](std::uint16_t virtualKeyCode) {
        return keymap->silentKey(virtualKeyCode);
    };
}

} // namespace platform

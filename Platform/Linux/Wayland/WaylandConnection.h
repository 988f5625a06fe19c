// A connection of the program's own to the Wayland compositor, beside the toolkit's.
#pragma once

#include <wayland-client-core.h>

#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <memory>

namespace platform {

struct DestroyProxy
{
    template <class Proxy> void operator()(Proxy *proxy) const
    {
        // Every object of the protocols is a proxy to the library.
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(proxy)); // NOLINT
    }
};

// An object of the compositor's, forgotten on this side without telling the other. Must go before its
// connection.
template <class Proxy> using WaylandObject = std::unique_ptr<Proxy, DestroyProxy>;

// One thread. What the compositor sends is taken in before each use, and, where that thread has a Qt event
// loop, when it comes. A broken connection stays broken and never ends the process; nothing but roundTrip()
// waits.
class WaylandConnection
{
public:
    using Clock = std::chrono::steady_clock;

    // Connects to the compositor of the session; check isOpen().
    WaylandConnection();

    [[nodiscard]] bool isOpen() const;
    // REQUIRES: isOpen() was true once.
    [[nodiscard]] wl_display *get() const { return display_.get(); }

    // Sends what is queued. A compositor that has not read for so long that it does not fit any more counts
    // as lost, for the library would end the process sooner or later.
    bool flush();
    // Takes in what came.
    void drain();
    // From now on the event loop takes in what comes, when it comes. REQUIRES: a Qt application.
    void watch();
    // Sends what is queued, and waits until the compositor has answered all of it; false where it has not by
    // the deadline.
    [[nodiscard]] bool roundTrip(Clock::time_point deadline);

private:
    bool takeIn(Clock::time_point deadline);

    struct Disconnect
    {
        void operator()(wl_display *display) const { wl_display_disconnect(display); }
    };

    std::unique_ptr<wl_display, Disconnect> display_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool isBroken_ = false;
};

} // namespace platform

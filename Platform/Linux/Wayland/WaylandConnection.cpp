#include "Platform/Linux/Wayland/WaylandConnection.h"

#include "Platform/Linux/Wayland/WaylandSocket.h"

#include <wayland-client-protocol.h>

#include <poll.h>

#include <algorithm>
#include <cerrno>

namespace platform {

namespace {

using std::chrono::milliseconds;

bool becomesReadable(int descriptor, WaylandConnection::Clock::time_point deadline)
{
    pollfd file{descriptor, POLLIN, 0};
    int result = -1;
    do {
        const auto left = std::chrono::ceil<milliseconds>(deadline - WaylandConnection::Clock::now());
        result = poll(&file, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
    } while (result < 0 && errno == EINTR);
    return result > 0;
}

const wl_callback_listener markDone{
    [](void *isDone, wl_callback *, std::uint32_t) { *static_cast<bool *>(isDone) = true; }};

} // namespace

WaylandConnection::WaylandConnection()
{
    if (auto socket = connectToCompositor(); socket.isOpen()) {
        display_.reset(wl_display_connect_to_fd(socket.release()));
    }
}

bool WaylandConnection::isOpen() const
{
    return display_ && !isBroken_ && wl_display_get_error(get()) == 0;
}

bool WaylandConnection::flush()
{
    if (isOpen()) {
        isBroken_ = wl_display_flush(get()) < 0;
    }
    return isOpen();
}

void WaylandConnection::drain()
{
    while (takeIn(Clock::now())) {
    }
    if (notifier_ && !isOpen()) {
        notifier_->setEnabled(false); // the end of a connection can be read for ever
    }
}

void WaylandConnection::watch()
{
    notifier_ = std::make_unique<QSocketNotifier>(wl_display_get_fd(get()), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        drain();
        flush(); // what was asked for upon what came
    });
}

bool WaylandConnection::roundTrip(Clock::time_point deadline)
{
    if (!isOpen()) {
        return false;
    }
    bool isDone = false;
    const WaylandObject<wl_callback> callback(wl_display_sync(get()));
    wl_callback_add_listener(callback.get(), &markDone, &isDone);
    while (!isDone && flush() && takeIn(deadline)) {
    }
    return isDone;
}

// Waits for events until the deadline, and handles them; false where none came.
bool WaylandConnection::takeIn(Clock::time_point deadline)
{
    while (isOpen() && wl_display_prepare_read(get()) != 0) {
        wl_display_dispatch_pending(get());
    }
    if (!isOpen()) {
        return false;
    }
    if (!becomesReadable(wl_display_get_fd(get()), deadline)) {
        wl_display_cancel_read(get());
        return false;
    }
    return wl_display_read_events(get()) == 0 && wl_display_dispatch_pending(get()) >= 0;
}

} // namespace platform

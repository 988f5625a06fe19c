#include "Tests/Support/Wayland/WaylandStandIn.h"

#include "Tests/Support/Wayland/WaylandStandInProtocols.h"

#include <virtual-keyboard-unstable-v1-server-protocol.h>
#include <wlr-virtual-pointer-unstable-v1-server-protocol.h>

#include <wayland-server-protocol.h>

#include <QFile>

namespace testsupport {

namespace {

constexpr int turn = 2; // milliseconds that the thread waits for its clients
constexpr int seatVersion = 5;
constexpr int outputVersion = 2;

} // namespace

WaylandStandIn::WaylandStandIn(const QString &path, QByteArray keymap, Offers offers)
    : keymap_(std::move(keymap))
    , display_(wl_display_create())
    , paused_(lock_, std::defer_lock)
{
    if (offers.hasSeat) {
        offer(wl_seat_interface, seatVersion, bindSeat);
    }
    if (offers.hasPointers) {
        offer(zwlr_virtual_pointer_manager_v1_interface, 1, bindPointers);
    }
    if (offers.hasKeyboards) {
        offer(zwp_virtual_keyboard_manager_v1_interface, 1, bindKeyboards);
    }
    if (offers.hasOutput) {
        offer(wl_output_interface, outputVersion, bindOutput);
    }
    wl_display_add_socket(display_, QFile::encodeName(path).constData());
    thread_ = std::jthread([this](const std::stop_token &stop) { run(stop); });
}

WaylandStandIn::~WaylandStandIn()
{
    if (paused_.owns_lock()) {
        goOn();
    }
    thread_.request_stop();
    thread_.join();
    wl_display_destroy_clients(display_);
    wl_display_destroy(display_);
}

void WaylandStandIn::offer(const wl_interface &interface, int version, wl_global_bind_func_t bind)
{
    globals_.push_back(wl_global_create(display_, &interface, version, this, bind));
}

void WaylandStandIn::run(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        {
            const std::lock_guard guard(lock_);
            wl_event_loop_dispatch(wl_display_get_event_loop(display_), 0);
            wl_display_flush_clients(display_);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(turn));
    }
}

QStringList WaylandStandIn::requests() const
{
    const std::lock_guard guard(lock_);
    return requests_;
}

int WaylandStandIn::clientCount() const
{
    const std::lock_guard guard(lock_);
    return wl_list_length(wl_display_get_client_list(display_));
}

void WaylandStandIn::takeBack()
{
    const std::lock_guard guard(lock_);
    for (auto *global : globals_) {
        wl_global_remove(global);
    }
}

void WaylandStandIn::refuse()
{
    const std::lock_guard guard(lock_);
    wl_client *client = nullptr;
    wl_client_for_each(client, wl_display_get_client_list(display_))
    {
        wl_client_post_implementation_error(client, "refused by the test");
    }
}

void WaylandStandIn::pause()
{
    paused_.lock();
}

void WaylandStandIn::goOn()
{
    paused_.unlock();
}

void WaylandStandIn::note(const QString &request)
{
    requests_.append(request);
}

} // namespace testsupport

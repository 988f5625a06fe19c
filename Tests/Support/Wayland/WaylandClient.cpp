#include "Tests/Support/Wayland/WaylandClient.h"

#include <QFile>

#include <poll.h>

namespace testsupport {

const wl_registry_listener WaylandClient::listener{
    [](void *self, wl_registry *, std::uint32_t name, const char *interface, std::uint32_t) {
        static_cast<WaylandClient *>(self)->globals_.emplace(interface, name);
    },
    [](void *, wl_registry *, std::uint32_t) {}};

WaylandClient::WaylandClient(const QString &display)
    : display_(wl_display_connect(QFile::encodeName(display).constData()))
{
    if (display_) {
        registry_ = wl_display_get_registry(display_.get());
        wl_registry_add_listener(registry_, &listener, this);
        sync();
    }
}

WaylandClient::~WaylandClient()
{
    if (registry_) {
        wl_registry_destroy(registry_);
    }
}

void WaylandClient::drain() const
{
    auto *display = display_.get();
    pollfd file{wl_display_get_fd(display), POLLIN, 0};
    bool isMore = true;
    while (isMore && isOpen()) {
        wl_display_dispatch_pending(display);
        wl_display_flush(display);
        isMore = wl_display_prepare_read(display) != 0;
        if (!isMore) {
            isMore = poll(&file, 1, 0) > 0;
            isMore ? static_cast<void>(wl_display_read_events(display)) : wl_display_cancel_read(display);
        }
    }
}

} // namespace testsupport

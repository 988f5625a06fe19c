// A test's own connection to a Wayland compositor.
#pragma once

#include <wayland-client.h>

#include <QString>

#include <map>
#include <memory>
#include <string>

namespace testsupport {

// One thread at a time; no event loop: what came is handled when somebody asks.
class WaylandClient
{
public:
    // The display's name as WAYLAND_DISPLAY has it. Check isOpen().
    explicit WaylandClient(const QString &display);
    WaylandClient(const WaylandClient &) = delete;
    WaylandClient &operator=(const WaylandClient &) = delete;
    ~WaylandClient();

    [[nodiscard]] bool isOpen() const { return display_ && wl_display_get_error(display_.get()) == 0; }
    [[nodiscard]] wl_display *get() const { return display_.get(); }
    [[nodiscard]] bool offers(const std::string &interface) const { return globals_.contains(interface); }

    // Takes what the compositor offers; the caller destroys it. REQUIRES: it is offered.
    template <class Object>
    [[nodiscard]] Object *bind(const wl_interface &interface, std::uint32_t version) const
    {
        return static_cast<Object *>(
            wl_registry_bind(registry_, globals_.at(interface.name), &interface, version));
    }

    // Sends what is queued and waits until the compositor has handled it.
    void sync() const { wl_display_roundtrip(display_.get()); }
    // Sends what is queued and handles what came, without waiting.
    void drain() const;

private:
    struct Disconnect
    {
        void operator()(wl_display *display) const { wl_display_disconnect(display); }
    };

    static const wl_registry_listener listener;

    std::unique_ptr<wl_display, Disconnect> display_;
    wl_registry *registry_ = nullptr;
    std::map<std::string, std::uint32_t> globals_;
};

} // namespace testsupport

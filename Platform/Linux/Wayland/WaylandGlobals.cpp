#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <algorithm>

namespace platform {

const wl_registry_listener WaylandGlobals::listener{
    [](void *self, wl_registry *, std::uint32_t name, const char *interface, std::uint32_t version) {
        static_cast<WaylandGlobals *>(self)->globals_.push_back({name, interface, version, false, nullptr});
    },
    [](void *self, wl_registry *, std::uint32_t name) { static_cast<WaylandGlobals *>(self)->remove(name); }};

WaylandGlobals::WaylandGlobals(const WaylandConnection &connection)
    : registry_(wl_display_get_registry(connection.get()))
{
    wl_registry_add_listener(registry_.get(), &listener, this);
}

bool WaylandGlobals::offers(const std::string &interface) const
{
    return std::ranges::find(globals_, interface, &Global::interface) != globals_.end();
}

void *WaylandGlobals::bindUntyped(const wl_interface &interface, std::uint32_t newestVersion)
{
    const auto global = std::ranges::find(globals_, interface.name, &Global::interface);
    return global == globals_.end() ? nullptr : bind(*global, interface, newestVersion);
}

void *WaylandGlobals::bindNextUntyped(const wl_interface &interface, std::uint32_t newestVersion)
{
    const auto isNext = [&interface](const Global &global) {
        return global.interface == interface.name && !global.isBound;
    };
    const auto global = std::ranges::find_if(globals_, isNext);
    return global == globals_.end() ? nullptr : bind(*global, interface, newestVersion);
}

void *WaylandGlobals::bind(Global &global, const wl_interface &interface, std::uint32_t newestVersion)
{
    global.isBound = true;
    auto *object =
        wl_registry_bind(registry_.get(), global.name, &interface, std::min(global.version, newestVersion));
    global.object = object;
    return object;
}

bool WaylandGlobals::isOffered(const void *object) const
{
    return std::ranges::find(globals_, object, &Global::object) != globals_.end();
}

void WaylandGlobals::remove(std::uint32_t name)
{
    const auto global = std::ranges::find(globals_, name, &Global::name);
    if (global != globals_.end()) {
        isAnythingBoundGone_ = isAnythingBoundGone_ || global->isBound;
        globals_.erase(global);
    }
}

} // namespace platform

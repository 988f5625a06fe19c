// What the compositor offers to its clients.
#pragma once

#include "Platform/Linux/Wayland/WaylandConnection.h"

#include <wayland-client-protocol.h>

#include <string>
#include <vector>

namespace platform {

// Follows the offers as they come and go; complete after a round trip of the connection. The connection's
// thread.
class WaylandGlobals
{
public:
    // REQUIRES: the connection is open, and outlives it.
    explicit WaylandGlobals(const WaylandConnection &connection);
    WaylandGlobals(const WaylandGlobals &) = delete;
    WaylandGlobals &operator=(const WaylandGlobals &) = delete;

    [[nodiscard]] bool offers(const std::string &interface) const;
    // Takes the first offer of an interface, at most in the given version; nothing where there is none.
    template <class Proxy>
    [[nodiscard]] WaylandObject<Proxy> bind(const wl_interface &interface, std::uint32_t newestVersion)
    {
        return WaylandObject<Proxy>(static_cast<Proxy *>(bindUntyped(interface, newestVersion)));
    }

    // The same for an offer that was not taken before, where there are several: one for each screen.
    template <class Proxy>
    [[nodiscard]] WaylandObject<Proxy> bindNext(const wl_interface &interface, std::uint32_t newestVersion)
    {
        return WaylandObject<Proxy>(static_cast<Proxy *>(bindNextUntyped(interface, newestVersion)));
    }

    // Whether the compositor has not taken back what this object was bound to.
    [[nodiscard]] bool isOffered(const void *object) const;
    // Whether the compositor took back something that was bound.
    [[nodiscard]] bool isAnythingBoundGone() const { return isAnythingBoundGone_; }

private:
    struct Global
    {
        std::uint32_t name = 0;
        std::string interface;
        std::uint32_t version = 0;
        bool isBound = false;
        const void *object = nullptr; // that was bound to it the last
    };

    [[nodiscard]] void *bindUntyped(const wl_interface &interface, std::uint32_t newestVersion);
    [[nodiscard]] void *bindNextUntyped(const wl_interface &interface, std::uint32_t newestVersion);
    [[nodiscard]] void *bind(Global &global, const wl_interface &interface, std::uint32_t newestVersion);
    void remove(std::uint32_t name);

    static const wl_registry_listener listener;

    WaylandObject<wl_registry> registry_;
    std::vector<Global> globals_;
    bool isAnythingBoundGone_ = false;
};

} // namespace platform

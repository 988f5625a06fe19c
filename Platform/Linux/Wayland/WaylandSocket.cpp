#include "Platform/Linux/Wayland/WaylandSocket.h"

#include <QByteArray>

#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>

namespace platform {

namespace {

QByteArray displayName()
{
    const auto name = qgetenv("WAYLAND_DISPLAY");
    const bool isX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    return name.isEmpty() && !isX11 ? QByteArray("wayland-0") : name;
}

// Empty where there can be no socket.
QByteArray socketPath()
{
    auto name = displayName();
    const auto folder = qgetenv("XDG_RUNTIME_DIR");
    if (name.startsWith('/')) {
        return name;
    }
    return name.isEmpty() || folder.isEmpty() ? QByteArray() : folder + '/' + name;
}

} // namespace

FileDescriptor connectToCompositor()
{
    const auto path = socketPath();
    sockaddr_un address{};
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) {
        return FileDescriptor();
    }
    address.sun_family = AF_UNIX;
    std::memcpy(static_cast<char *>(address.sun_path), path.constData(),
                static_cast<std::size_t>(path.size()));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Any kind of socket's address is passed as the general one.
    const auto *general = reinterpret_cast<const sockaddr *>(&address); // NOLINT
    const bool isConnected = socket.isOpen() && connect(socket.get(), general, sizeof address) == 0;
    return isConnected ? std::move(socket) : FileDescriptor();
}

bool isWaylandSession()
{
    return connectToCompositor().isOpen();
}

} // namespace platform

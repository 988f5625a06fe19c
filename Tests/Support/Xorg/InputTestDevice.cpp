#include "Tests/Support/Xorg/InputTestDevice.h"

#include <QFile>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <xf86-input-inputtest-protocol.h>

#include <algorithm>

namespace testsupport {

namespace {

constexpr int firstScrollAxis = 2;
constexpr int xCodeOfEvdev = 8;
constexpr timeval patience{10, 0};

template <class Event> Event eventOf(xf86ITEventType type)
{
    Event event{};
    event.header.length = sizeof event;
    event.header.type = type;
    return event;
}

template <class Event> bool sendTo(int descriptor, const Event &event)
{
    return send(descriptor, &event, sizeof event, MSG_NOSIGNAL) == sizeof event;
}

} // namespace

InputTestDevice::InputTestDevice(const QString &socketPath)
    : descriptor_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    isOpen_ = connectTo(socketPath) && greet();
}

InputTestDevice::~InputTestDevice()
{
    close(descriptor_);
}

bool InputTestDevice::connectTo(const QString &socketPath)
{
    setsockopt(descriptor_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto path = QFile::encodeName(socketPath);
    std::copy_n(path.constData(), std::min<qsizetype>(path.size(), sizeof address.sun_path - 1),
                address.sun_path);
    // The socket functions take every family's address by the same type.
    return connect(descriptor_, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0; // NOLINT
}

bool InputTestDevice::greet()
{
    auto version = eventOf<xf86ITEventClientVersion>(XF86IT_EVENT_CLIENT_VERSION);
    version.major = XF86IT_PROTOCOL_VERSION_MAJOR;
    version.minor = XF86IT_PROTOCOL_VERSION_MINOR;
    return sendTo(descriptor_, version) && receive(XF86IT_RESPONSE_SERVER_VERSION);
}

bool InputTestDevice::receive(unsigned type) const
{
    xf86ITResponseAny response{};
    auto &header = response.header;
    if (recv(descriptor_, &header, sizeof header, MSG_WAITALL) != sizeof header ||
        header.length > sizeof response) {
        return false;
    }
    const auto rest = header.length - sizeof header;
    const auto hasRest =
        rest == 0 || recv(descriptor_, &header + 1, rest, MSG_WAITALL) == static_cast<ssize_t>(rest);
    return hasRest && header.type == type;
}

void InputTestDevice::moveBy(int dx, int dy)
{
    moveAxes(0, dx, dy);
}

void InputTestDevice::turnWheelBy(int units)
{
    moveAxes(firstScrollAxis, 0, units);
}

void InputTestDevice::postKey(int key, bool isDown)
{
    auto event = eventOf<xf86ITEventKey>(XF86IT_EVENT_KEY);
    event.key_code = key + xCodeOfEvdev;
    event.is_press = isDown ? 1 : 0;
    isOpen_ = isOpen_ && sendTo(descriptor_, event);
    waitForServer();
}

void InputTestDevice::moveAxes(int firstAxis, int first, int second)
{
    auto motion = eventOf<xf86ITEventMotion>(XF86IT_EVENT_MOTION);
    motion.valuators.mask[0] = static_cast<std::uint8_t>(3U << firstAxis);
    motion.valuators.valuators[firstAxis] = first;
    motion.valuators.valuators[firstAxis + 1] = second;
    isOpen_ = isOpen_ && sendTo(descriptor_, motion);
    waitForServer();
}

void InputTestDevice::waitForServer()
{
    const auto wait = eventOf<xf86ITEventWaitForSync>(XF86IT_EVENT_WAIT_FOR_SYNC);
    isOpen_ = isOpen_ && sendTo(descriptor_, wait) && receive(XF86IT_RESPONSE_SYNC_FINISHED);
}

} // namespace testsupport

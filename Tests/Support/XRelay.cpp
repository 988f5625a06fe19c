#include "Tests/Support/XRelay.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFile>

#include <array>
#include <cstring>

namespace testsupport {

namespace {

constexpr int pause = 5; // milliseconds between two looks at whether to end

QString socketOf(const QString &display)
{
    return QStringLiteral("/tmp/.X11-unix/X") + display.mid(1);
}

int openSocket(const QString &path, int (*use)(int, const sockaddr *, socklen_t))
{
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.toLocal8Bit().constData(), sizeof address.sun_path - 1);
    if (use(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) { // NOLINT
        close(descriptor);
        return -1;
    }
    return descriptor;
}

bool isReadable(int descriptor)
{
    pollfd file{descriptor, POLLIN, 0};
    return poll(&file, 1, pause) > 0;
}

} // namespace

XRelay::XRelay(const QString &display, QByteArray from, QByteArray to)
    : server_(socketOf(display))
    , from_(std::move(from))
    , to_(std::move(to))
{
    open();
    if (listener_ >= 0 && listen(listener_, 8) == 0) {
        thread_ = std::thread([this] { run(); });
    }
}

void XRelay::open()
{
    for (int number = 40000 + getpid() % 20000; listener_ < 0 && number < 65000; ++number) {
        display_ = QLatin1Char(':') + QString::number(number);
        listener_ = openSocket(socketOf(display_), bind);
    }
}

XRelay::~XRelay()
{
    isEnding_ = true;
    if (thread_.joinable()) {
        thread_.join();
    }
    close(listener_);
    QFile::remove(socketOf(display_));
}

void XRelay::run()
{
    std::vector<std::thread> clients;
    while (!isEnding_) {
        if (isReadable(listener_)) {
            clients.emplace_back([this, client = accept(listener_, nullptr, nullptr),
                                  isFirst = clients.empty()] { serve(client, isFirst); });
        }
    }
    for (auto &client : clients) {
        client.join();
    }
}

void XRelay::serve(int client, bool isFirst)
{
    const int server = openSocket(server_, connect);
    std::array<pollfd, 2> ends{{{client, POLLIN, 0}, {server, POLLIN, 0}}};
    bool isOpen = server >= 0;
    while (isOpen && !isEnding_ && !(isFirst && isFirstLost_)) {
        poll(ends.data(), ends.size(), pause);
        isOpen = (ends[0].revents == 0 || hand(client, server, true)) &&
                 (ends[1].revents == 0 || hand(server, client, false));
    }
    close(server);
    close(client);
}

// A request is read whole: clients write each at once.
bool XRelay::hand(int from, int to, bool isRequest)
{
    std::array<char, 65536> buffer{};
    const auto length = read(from, buffer.data(), buffer.size());
    if (length <= 0) {
        return false;
    }
    QByteArray bytes(buffer.data(), length);
    if (isRequest && !from_.isEmpty() && bytes.contains(from_)) {
        hasChangedAny_ = true;
        bytes.replace(from_, to_);
    }
    return send(to, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

} // namespace testsupport

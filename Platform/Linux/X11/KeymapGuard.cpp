#include "Platform/Linux/X11/KeymapGuard.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <span>

namespace platform {

namespace {

constexpr timespec lookUpTime{0, 500'000'000};
constexpr char letGo = 'l';
constexpr std::size_t answerSize = 32;

// What follows runs in the new process, where only calls that a signal handler could make are allowed.

void closeAllBut(int one, int other)
{
    const auto low = static_cast<unsigned>(std::min(one, other));
    const auto high = static_cast<unsigned>(std::max(one, other));
    if (low > 0) {
        close_range(0, low - 1, 0);
    }
    if (high > low + 1) {
        close_range(low + 1, high - 1, 0);
    }
    close_range(high + 1, ~0U, 0);
}

bool isLetGo(int line)
{
    char word = 0;
    ssize_t size = -1;
    do {
        size = read(line, &word, 1);
    } while (size < 0 && errno == EINTR);
    return size != 0;
}

bool awaitServer(int socket, short events)
{
    pollfd file{socket, events, 0};
    return poll(&file, 1, -1) > 0 || errno == EINTR;
}

bool send(int socket, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const auto size = write(socket, bytes.data(), bytes.size());
        if (size > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(size));
        } else if (size == 0 || (errno != EAGAIN && errno != EINTR) || !awaitServer(socket, POLLOUT)) {
            return false;
        }
    }
    return true;
}

// The last request is one that the server answers, after all events that it sends unasked.
void awaitAnswer(int socket)
{
    constexpr std::uint8_t isAnswer = 1;
    std::array<std::uint8_t, answerSize> message{};
    ssize_t size = 0;
    do {
        size = read(socket, message.data(), message.size());
    } while ((size < 0 && (errno == EAGAIN || errno == EINTR) && awaitServer(socket, POLLIN)) ||
             (size > 0 && message.front() != isAnswer));
}

[[noreturn]] void guard(int line, int socket, std::span<const std::uint8_t> requests)
{
    setsid();
    closeAllBut(line, socket);
    if (!isLetGo(line)) {
        nanosleep(&lookUpTime, nullptr);
        if (send(socket, requests)) {
            awaitAnswer(socket);
        }
    }
    _exit(0);
}

// With every signal blocked on the calling thread, as the new process is to have it.
template <class Function> void withoutSignals(const Function &function)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    function();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace

KeymapGuard::KeymapGuard(const XKeyMeanings &meanings)
{
    if (!connection_.isOpen() || !startKeyboardExtensions(connection_)) {
        return;
    }
    auto requests = keyMeaningRequests(connection_, meanings, XKeyPart::symbols);
    const auto actions = keyMeaningRequests(connection_, meanings, XKeyPart::actions);
    requests.insert(requests.end(), actions.begin(), actions.end());
    constexpr std::array<std::uint8_t, 4> getInputFocus{XCB_GET_INPUT_FOCUS, 0, 1, 0};
    requests.insert(requests.end(), getInputFocus.begin(), getInputFocus.end());
    start(requests);
}

// The process between the two ends at once, so that the guard is nobody's child.
void KeymapGuard::start(const std::vector<std::uint8_t> &requests)
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return;
    }
    const FileDescriptor guardsEnd(ends[0]);
    FileDescriptor ownEnd(ends[1]);
    const int socket = xcb_get_file_descriptor(connection_.get());
    pid_t child = -1;
    withoutSignals([&] {
        child = fork();
        if (child == 0) {
            const auto grandchild = fork();
            if (grandchild == 0) {
                guard(guardsEnd.get(), socket, requests);
            }
            _exit(grandchild > 0 ? 0 : 1);
        }
    });
    int status = -1;
    if (child > 0 && waitpid(child, &status, 0) == child && status == 0) {
        line_ = std::move(ownEnd);
    }
}

KeymapGuard::~KeymapGuard()
{
    if (line_.isOpen()) {
        static_cast<void>(::send(line_.get(), &letGo, 1, MSG_NOSIGNAL));
    }
}

} // namespace platform

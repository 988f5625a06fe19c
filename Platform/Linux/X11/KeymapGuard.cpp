#include "Platform/Linux/X11/KeymapGuard.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <optional>
#include <span>
#include <string_view>
#include <thread>
#include <utility>

namespace platform {

namespace {

constexpr timespec lookUpTime{0, 500'000'000};
constexpr char wordToLetGo = 'l';
constexpr char wordOfGuard = 'g';            // that it is there
constexpr std::size_t mostBytes = 1U << 16U; // of all keys there are, each a row of its own
constexpr std::chrono::seconds patience(5);
constexpr std::chrono::milliseconds betweenLooks(20);
constexpr std::string_view nameOfTurn = "_STIRRA_KEYMAP_GUARD";
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

// Each message is a word, or other requests in place of those before. False: the line has been closed without
// the word.
bool isLetGo(int line, std::span<std::uint8_t> buffer, std::size_t &requestsSize)
{
    std::array<std::uint8_t, mostBytes> message; // NOLINT: filled by read()
    for (;;) {
        const auto size = read(line, message.data(), message.size());
        if (size == 1) {
            return true;
        }
        if (size == 0 || (size < 0 && errno != EINTR)) {
            return false;
        }
        if (size > 0) {
            requestsSize = static_cast<std::size_t>(size);
            std::copy_n(message.begin(), requestsSize, buffer.begin());
        }
    }
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

[[noreturn]] void guard(int line, int socket, std::span<std::uint8_t> buffer, std::size_t size)
{
    setsid();
    closeAllBut(line, socket);
    static_cast<void>(::send(line, &wordOfGuard, 1, MSG_NOSIGNAL));
    if (!isLetGo(line, buffer, size)) {
        nanosleep(&lookUpTime, nullptr);
        if (send(socket, buffer.first(size))) {
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

template <class Call> auto untilDone(const Call &call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace

// A selection has one owner, and none once the connection of its owner has ended: here, when both this
// process and the one beside it are done with it.
bool KeymapGuard::takesTurn(const std::stop_token &stop)
{
    if (!connection_.isOpen() || !startKeyboardExtensions(connection_)) {
        return false;
    }
    auto *x = connection_.get();
    const auto atom = xReply(
        xcb_intern_atom_reply, x,
        xcb_intern_atom_unchecked(x, 0, static_cast<std::uint16_t>(nameOfTurn.size()), nameOfTurn.data()));
    const auto window = xcb_generate_id(x);
    xcb_create_window(x, XCB_COPY_FROM_PARENT, window, connection_.rootWindow(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const auto deadline = std::chrono::steady_clock::now() + patience;
    bool isTaken = atom && takeSelection(window, atom->atom);
    while (atom && !isTaken && connection_.isOpen() && !stop.stop_requested() &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(betweenLooks);
        isTaken = takeSelection(window, atom->atom);
    }
    return isTaken;
}

bool KeymapGuard::takeSelection(xcb_window_t window, xcb_atom_t turn)
{
    auto *x = connection_.get();
    const auto ownerNow = [x, turn] {
        const auto reply =
            xReply(xcb_get_selection_owner_reply, x, xcb_get_selection_owner_unchecked(x, turn));
        return reply ? std::optional(reply->owner) : std::nullopt;
    };
    if (ownerNow() != XCB_WINDOW_NONE) {
        return false;
    }
    xcb_grab_server(x); // so that it is nobody else's by now
    if (ownerNow() == XCB_WINDOW_NONE) {
        xcb_set_selection_owner(x, window, turn, XCB_CURRENT_TIME);
    }
    xcb_ungrab_server(x);
    return ownerNow() == window;
}

std::vector<std::uint8_t> KeymapGuard::requestsFor(const XKeyMeanings &meanings)
{
    auto requests = keyMeaningRequests(connection_, meanings, XKeyPart::symbols);
    const auto actions = keyMeaningRequests(connection_, meanings, XKeyPart::actions);
    requests.insert(requests.end(), actions.begin(), actions.end());
    constexpr std::array<std::uint8_t, 4> getInputFocus{XCB_GET_INPUT_FOCUS, 0, 1, 0};
    requests.insert(requests.end(), getInputFocus.begin(), getInputFocus.end());
    return requests;
}

bool KeymapGuard::start(const XKeyMeanings &meanings)
{
    auto requests = requestsFor(meanings);
    return requests.size() <= mostBytes && fork(std::move(requests));
}

void KeymapGuard::change(const XKeyMeanings &meanings)
{
    const auto requests = requestsFor(meanings);
    static_cast<void>(::send(line_.get(), requests.data(), requests.size(), MSG_NOSIGNAL));
}

// The process between the two ends at once, so that the guard is nobody's child. How it ended nobody tells a
// program that ignores the ends of its children, and another part of this one may have asked first; so the
// guard itself says that it is there.
bool KeymapGuard::fork(std::vector<std::uint8_t> requests)
{
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return false;
    }
    FileDescriptor guardsEnd(ends[0]);
    FileDescriptor ownEnd(ends[1]);
    const int socket = xcb_get_file_descriptor(connection_.get());
    const auto size = requests.size();
    requests.resize(mostBytes);
    pid_t child = -1;
    withoutSignals([&] {
        child = ::fork();
        if (child == 0) {
            const auto grandchild = ::fork();
            if (grandchild == 0) {
                guard(guardsEnd.get(), socket, requests, size);
            }
            _exit(0);
        }
    });
    guardsEnd = FileDescriptor(); // so that the line is closed where there is no guard
    if (child > 0) {
        untilDone([child] { return waitpid(child, nullptr, 0); });
    }
    char word = 0;
    if (untilDone([&] { return read(ownEnd.get(), &word, 1); }) == 1) {
        line_ = std::move(ownEnd);
    }
    return line_.isOpen();
}

void KeymapGuard::letGo()
{
    if (line_.isOpen()) {
        static_cast<void>(::send(line_.get(), &wordToLetGo, 1, MSG_NOSIGNAL));
        line_ = FileDescriptor();
    }
}

// Disconnecting ends a connection for every process that has it. A guard that is still to act has it: what is
// ended in its place is the line.
KeymapGuard::~KeymapGuard()
{
    if (line_.isOpen()) {
        dup3(line_.get(), xcb_get_file_descriptor(connection_.get()), O_CLOEXEC);
    }
}

} // namespace platform

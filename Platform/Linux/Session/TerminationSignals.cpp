#include "Platform/Linux/Session/TerminationSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace platform {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t wakeDescriptor = -1;

void wakeMainLoop(int /*signal*/)
{
    const int savedError = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeDescriptor, &one, sizeof one);
    errno = savedError;
}

void setHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : terminationSignals) {
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
    , descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , notifier_(descriptor_, QSocketNotifier::Read)
{
    connect(&notifier_, &QSocketNotifier::activated, this, &TerminationSignals::drain);
    wakeDescriptor = descriptor_;
    setHandlers(wakeMainLoop);
}

TerminationSignals::~TerminationSignals()
{
    setHandlers(SIG_DFL);
    wakeDescriptor = -1;
    close(descriptor_);
}

void TerminationSignals::drain()
{
    std::uint64_t count = 0;
    if (read(descriptor_, &count, sizeof count) > 0) {
        Q_EMIT received();
    }
}

} // namespace platform

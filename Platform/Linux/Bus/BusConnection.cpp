#include "Platform/Linux/Bus/BusConnection.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>

namespace platform {

namespace {

// Whoever sends more than that at a time does not keep the user waiting.
constexpr int messagesATurn = 32;

// The steady clock is the monotonic one, which the library counts on.
std::chrono::milliseconds until(std::uint64_t microseconds)
{
    constexpr std::chrono::milliseconds longest(std::numeric_limits<int>::max());
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const auto left = std::chrono::microseconds(microseconds) - now;
    return std::clamp(std::chrono::ceil<std::chrono::milliseconds>(left), std::chrono::milliseconds(0),
                      longest);
}

// It may be what calls us.
void forget(std::unique_ptr<QSocketNotifier> &notifier)
{
    if (notifier) {
        notifier->setEnabled(false);
        notifier.release()->deleteLater();
    }
}

} // namespace

std::unique_ptr<BusConnection> BusConnection::openSession()
{
    sd_bus *bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        return nullptr;
    }
    return std::make_unique<BusConnection>(BusPointer<sd_bus>(bus));
}

BusConnection::BusConnection(BusPointer<sd_bus> bus)
    : bus_(std::move(bus))
{
    timeout_.setSingleShot(true);
    connect(&timeout_, &QTimer::timeout, this, &BusConnection::process);
    await();
}

std::string BusConnection::uniqueName() const
{
    const char *name = nullptr;
    return sd_bus_get_unique_name(bus_.get(), &name) < 0 ? std::string() : name;
}

BusSlot BusConnection::exportObject(const char *path, const char *interface, const sd_bus_vtable *table,
                                    void *object)
{
    sd_bus_slot *slot = nullptr;
    sd_bus_add_object_vtable(bus_.get(), &slot, path, interface, table, object);
    return BusSlot(slot);
}

BusSlot BusConnection::watch(const std::string &rule, sd_bus_message_handler_t handler, void *object)
{
    sd_bus_slot *slot = nullptr;
    sd_bus_add_match_async(bus_.get(), &slot, rule.c_str(), handler, nullptr, object);
    await();
    return BusSlot(slot);
}

BusMessage BusConnection::newCall(const BusMember &member) const
{
    sd_bus_message *call = nullptr;
    sd_bus_message_new_method_call(bus_.get(), &call, member.service, member.path, member.interface,
                                   member.name);
    sd_bus_message_set_auto_start(call, 0);
    return BusMessage(call);
}

BusSlot BusConnection::call(sd_bus_message *call, sd_bus_message_handler_t handler, void *object)
{
    sd_bus_slot *slot = nullptr;
    sd_bus_call_async(bus_.get(), &slot, call, handler, object, 0);
    await();
    return BusSlot(slot);
}

BusMessage BusConnection::newSignal(const char *path, const char *interface, const char *name) const
{
    sd_bus_message *signal = nullptr;
    sd_bus_message_new_signal(bus_.get(), &signal, path, interface, name);
    return BusMessage(signal);
}

void BusConnection::send(sd_bus_message *message)
{
    sd_bus_send(bus_.get(), message, nullptr);
    await();
}

void BusConnection::process()
{
    int done = 1;
    for (int i = 0; done > 0 && i < messagesATurn; ++i) {
        done = sd_bus_process(bus_.get(), nullptr);
        wasLetIn_ = wasLetIn_ || sd_bus_is_ready(bus_.get()) > 0;
    }
    if (done < 0 || sd_bus_get_fd(bus_.get()) < 0) {
        end();
    } else {
        await();
    }
}

void BusConnection::end()
{
    forget(readable_);
    forget(writable_);
    timeout_.stop();
    sd_bus_close(bus_.get());
    Q_EMIT ended();
}

void BusConnection::await()
{
    awaitSocket();
    awaitTimeout();
    followQueue();
}

// An address that leads nowhere makes the library try the next one, on another socket.
void BusConnection::awaitSocket()
{
    const int socket = sd_bus_get_fd(bus_.get());
    if (socket < 0) {
        return;
    }
    if (!readable_ || readable_->socket() != socket) {
        forget(readable_);
        forget(writable_);
        readable_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
        writable_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Write);
        connect(readable_.get(), &QSocketNotifier::activated, this, &BusConnection::process);
        connect(writable_.get(), &QSocketNotifier::activated, this, &BusConnection::process);
    }
    const int events = std::max(sd_bus_get_events(bus_.get()), 0);
    readable_->setEnabled(events & POLLIN);
    writable_->setEnabled(events & POLLOUT);
}

// Zero: there is something to do that the socket does not tell of.
void BusConnection::awaitTimeout()
{
    std::uint64_t due = UINT64_MAX;
    sd_bus_get_timeout(bus_.get(), &due);
    if (std::exchange(due_, due) == due && timeout_.isActive() == (due != UINT64_MAX)) {
        return;
    }
    if (due == UINT64_MAX) {
        timeout_.stop();
    } else {
        timeout_.start(until(due));
    }
}

void BusConnection::followQueue()
{
    std::uint64_t kept = 0;
    sd_bus_get_n_queued_write(bus_.get(), &kept);
    if (std::exchange(isBehind_, kept > 0) && !isBehind_) {
        Q_EMIT caughtUp();
    }
}

} // namespace platform

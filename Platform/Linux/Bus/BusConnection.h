// A connection to the session bus on the main thread's event loop.
#pragma once

#include "Platform/Linux/Bus/BusPointer.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <string>

namespace platform {

// What is called: a member of an interface, at an object of somebody on the bus.
struct BusMember
{
    const char *service;
    const char *path;
    const char *interface;
    const char *name;
};

// Qt's own connections serve each message on a thread, which is four changes of threads for a question and
// its answer. Here the socket wakes the event loop itself. Main thread; nothing waits for the bus or anybody
// there: what cannot be sent yet is kept until it can be. Where memory ends, what was asked for is null.
class BusConnection final : public QObject
{
    Q_OBJECT

public:
    // Null where the environment names no session bus, or nobody takes the connection. What is exported and
    // sent before the event loop runs takes effect in that order as soon as the bus lets us in.
    [[nodiscard]] static std::unique_ptr<BusConnection> openSession();

    explicit BusConnection(BusPointer<sd_bus> bus);

    // Whether the bus has answered to our greeting, also when it has ended since.
    [[nodiscard]] bool wasLetIn() const { return wasLetIn_; }

    // Ours on the bus, such as ":1.7". REQUIRES: something came from there already.
    [[nodiscard]] std::string uniqueName() const;

    // Serves the object from now on, for as long as the slot is kept. REQUIRES: the table lives as long.
    [[nodiscard]] BusSlot exportObject(const char *path, const char *interface, const sd_bus_vtable *table,
                                       void *object);
    // Has each message that the rule selects handled, for as long as the slot is kept.
    [[nodiscard]] BusSlot watch(const std::string &rule, sd_bus_message_handler_t handler, void *object);

    // Nobody is started by a call. Without an answer after 25 s there is an error in its place; without the
    // slot nobody is told.
    [[nodiscard]] BusMessage newCall(const BusMember &member) const;
    [[nodiscard]] BusSlot call(sd_bus_message *call, sd_bus_message_handler_t handler, void *object);

    [[nodiscard]] BusMessage newSignal(const char *path, const char *interface, const char *name) const;
    void send(sd_bus_message *message);
    // Whether something is kept until the bus takes it.
    [[nodiscard]] bool isBehind() const { return isBehind_; }

Q_SIGNALS:
    // The bus has taken all that was kept.
    void caughtUp();
    // The bus has gone, or has shown us the door. It does not come back on this connection, and what was
    // asked for last may stay without an answer.
    void ended();

private:
    void process();
    void end();
    void await();
    void awaitSocket();
    void awaitTimeout();
    void followQueue();

    BusPointer<sd_bus> bus_;
    std::unique_ptr<QSocketNotifier> readable_;
    std::unique_ptr<QSocketNotifier> writable_;
    QTimer timeout_;
    std::uint64_t due_ = UINT64_MAX; // when the timer fires, in microseconds of the monotonic clock
    bool wasLetIn_ = false;
    bool isBehind_ = false;
};

} // namespace platform

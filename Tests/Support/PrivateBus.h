// A D-Bus session bus of a test's own.
#pragma once

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/PrivateRuntime.h"

#include <QDBusConnection>

namespace testsupport {

// Started when made and ended when destroyed. It activates the services of the given folders and no others.
class PrivateBus
{
public:
    // Writes DBUS_SESSION_BUS_ADDRESS into the runtime's environment. REQUIRES: the runtime outlives it.
    explicit PrivateBus(PrivateRuntime &runtime, const QStringList &serviceFolders = {});

    // Whether the bus came up.
    [[nodiscard]] bool isOpen() const { return !address_.isEmpty(); }
    [[nodiscard]] QString address() const { return address_; }
    [[nodiscard]] ChildProcess &process() { return *process_; }

    // A new connection of this process to the bus, under a name that no other connection has.
    [[nodiscard]] QDBusConnection connect() const;

private:
    std::unique_ptr<ChildProcess> process_;
    QString address_;
};

} // namespace testsupport

// The accessibility bus and its registry on a private session bus.
#pragma once

#include "Tests/Support/PrivateBus.h"

namespace testsupport {

// Started when made, ended when destroyed; the registry daemon is activated by it on first use.
class AccessibilityBus
{
public:
    // REQUIRES: the bus and the runtime outlive it; a display, where there is one, is in the environment.
    AccessibilityBus(const PrivateRuntime &runtime, const PrivateBus &bus);

    // Whether the registry answered.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    // The address of the accessibility bus itself.
    [[nodiscard]] QString address() const { return address_; }
    // A new connection of this process to it, under a name that no other connection has.
    [[nodiscard]] QDBusConnection connect() const;

private:
    ChildProcess launcher_;
    QString address_;
    bool isOpen_ = false;
};

} // namespace testsupport

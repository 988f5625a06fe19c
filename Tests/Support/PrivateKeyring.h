// A keyring daemon on a private session bus.
#pragma once

#include "Tests/Support/PrivateBus.h"

#include <memory>

namespace testsupport {

// Started when made, ended when destroyed. Its keyrings lie in the runtime's data folder.
class PrivateKeyring
{
public:
    enum class State {
        unlocked, // with a keyring of that password, made where there is none
        locked,   // with the keyrings that there are, each locked; nobody can be asked for a password
    };

    // REQUIRES: the bus and the runtime outlive it.
    PrivateKeyring(const PrivateRuntime &runtime, const PrivateBus &bus, State state = State::unlocked);

    // Whether the service is on the bus.
    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] ChildProcess &process() { return *process_; }

private:
    std::unique_ptr<ChildProcess> process_;
    bool isOpen_ = false;
};

} // namespace testsupport

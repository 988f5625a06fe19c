// A user's session with a place for secrets, in which the test process itself lives.
#pragma once

#include "Tests/Support/PrivateKeyring.h"

#include <memory>

namespace platform {

// Sets the environment of this process. REQUIRES: the process has used no secret service before.
class SecretHome
{
public:
    enum class Kind { keyring, file, none };

    explicit SecretHome(Kind kind);
    SecretHome(const SecretHome &) = delete;
    SecretHome &operator=(const SecretHome &) = delete;
    ~SecretHome() = default;

    [[nodiscard]] testsupport::PrivateRuntime &runtime() { return runtime_; }
    [[nodiscard]] testsupport::PrivateBus &bus() { return *bus_; }
    [[nodiscard]] testsupport::PrivateKeyring &keyring() { return *keyring_; }

    // Once the bus has noticed, too.
    void endKeyring();
    void startKeyring(testsupport::PrivateKeyring::State state);
    void endBus();

    // What the program prints in this session; ends the test where it fails.
    QByteArray run(const QStringList &command) const;

private:
    testsupport::PrivateRuntime runtime_;
    std::unique_ptr<testsupport::PrivateBus> bus_;
    std::unique_ptr<testsupport::PrivateKeyring> keyring_;
};

} // namespace platform

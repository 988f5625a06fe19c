// The services that keep things. They are apart from Platform.h, in a library of their own: a program that
// keeps nothing loads neither a database nor a secret service's client.
#pragma once

#include "Platform/DefaultsStore.h"
#include "Platform/SecretStore.h"

#include <memory>
#include <string_view>

namespace platform {

// Any thread. Nothing is opened before it is used.
class StorageServices
{
public:
    StorageServices() = default;
    StorageServices(const StorageServices &) = delete;
    StorageServices &operator=(const StorageServices &) = delete;
    virtual ~StorageServices() = default;

    // The running application's own values. Its calls fail where the user has no place to keep any.
    [[nodiscard]] virtual std::unique_ptr<DefaultsStore> openApplicationDefaults() = 0;

    // The values that programs share under that name: a new object at each call, on the same values. Nothing
    // where the name cannot be a suite's: it is empty, the application's own, longer than 200 bytes, or has
    // other than the letters, digits, '.', '-' and '_' of ASCII, or begins with '.'.
    [[nodiscard]] virtual std::unique_ptr<DefaultsStore> openSuite(std::string_view name) = 0;

    // Lives as long as the services.
    [[nodiscard]] virtual SecretStore &secrets() = 0;

    // Those that are installed; where none are, the operating system's.
    [[nodiscard]] static StorageServices &current();
};

// Makes `services` the current ones for as long as the installation lives; those before come back after it.
// REQUIRES: no other thread uses the current ones while this is made or goes.
class StorageInstallation
{
public:
    explicit StorageInstallation(StorageServices &services);
    StorageInstallation(const StorageInstallation &) = delete;
    StorageInstallation &operator=(const StorageInstallation &) = delete;
    ~StorageInstallation();

private:
    StorageServices *previous_;
};

// The services of the operating system.
[[nodiscard]] std::unique_ptr<StorageServices> makeNativeStorage();

} // namespace platform

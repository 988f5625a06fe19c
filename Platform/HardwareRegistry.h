// The machine's hardware: services by class, what they say of themselves, calls into their drivers, and
// devices that send reports. It is apart from Platform.h, in a library of its own: a program that reads no
// sensor pays nothing.
#pragma once

#include "Platform/HidDevice.h"
#include "Platform/RegistryValue.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Any thread, but for the devices of createHidDevice(). Whatever asks a driver waits for its answer:
// properties, connecting and calls. That takes microseconds with most; one that has to wake its sensor may
// take some tenths of a second, and one whose sensor hangs up to 5 s. A thread that must not stand still for
// so long should not be the one that asks. Nothing is opened or looked for before it is asked for. Services
// that are found belong to the caller, who releases each once; a number that is not, or no longer, one of a
// service or connection fails.
class HardwareRegistry
{
public:
    HardwareRegistry() = default;
    HardwareRegistry(const HardwareRegistry &) = delete;
    HardwareRegistry &operator=(const HardwareRegistry &) = delete;
    virtual ~HardwareRegistry() = default;

    // The services of the class as they are now, in an order that does not change while they are there.
    [[nodiscard]] virtual std::vector<RegistryService> services(std::string_view className) = 0;
    // The first of them, or 0.
    [[nodiscard]] virtual RegistryService firstService(std::string_view className) = 0;
    virtual void release(RegistryService service) = 0;

    // Nothing where the service has no such property, or cannot tell it just now.
    [[nodiscard]] virtual std::optional<RegistryValue> property(RegistryService service,
                                                                std::string_view key) = 0;
    virtual RegistryResult setProperty(RegistryService service, std::string_view key, std::int32_t value) = 0;

    // Connects to the service's driver. Fails where that gives no answer; `connection` is 0 then.
    [[nodiscard]] virtual RegistryResult openUserClient(RegistryService service, std::uint32_t type,
                                                        RegistryConnection &connection) = 0;
    virtual void closeUserClient(RegistryConnection connection) = 0;

    // Call the driver's method `selector`. Where a call fails the output is left as it was.
    virtual RegistryResult callScalarMethod(RegistryConnection connection, std::uint32_t selector,
                                            std::span<const std::uint64_t> input,
                                            std::span<std::uint64_t> output) = 0;
    virtual RegistryResult callStructMethod(RegistryConnection connection, std::uint32_t selector,
                                            std::span<const std::byte> input,
                                            std::span<std::byte> output) = 0;

    // A device that sends reports; nothing where the service is none. Main thread.
    [[nodiscard]] virtual std::unique_ptr<HidDevice> createHidDevice(RegistryService service) = 0;

    // The maker's name of the machine's model; empty where nobody tells.
    [[nodiscard]] virtual std::string modelName() = 0;

    // The one that is installed; where none is, the operating system's.
    [[nodiscard]] static HardwareRegistry &current();
};

// Makes `registry` the current one for as long as the installation lives; the one before comes back after it.
// REQUIRES: nothing that was opened in the one lives on while the other is current.
class HardwareRegistryInstallation
{
public:
    explicit HardwareRegistryInstallation(HardwareRegistry &registry);
    HardwareRegistryInstallation(const HardwareRegistryInstallation &) = delete;
    HardwareRegistryInstallation &operator=(const HardwareRegistryInstallation &) = delete;
    ~HardwareRegistryInstallation();

private:
    HardwareRegistry *previous_;
};

// Holds a service of a registry, and releases it in the end.
class ServiceHolder
{
public:
    ServiceHolder(HardwareRegistry &registry, RegistryService service)
        : registry_(registry)
        , service_(service)
    {}
    ServiceHolder(const ServiceHolder &) = delete;
    ServiceHolder &operator=(const ServiceHolder &) = delete;
    ~ServiceHolder()
    {
        if (service_ != 0) {
            registry_.release(service_);
        }
    }

    [[nodiscard]] RegistryService get() const { return service_; }
    [[nodiscard]] bool isEmpty() const { return service_ == 0; }

private:
    HardwareRegistry &registry_;
    const RegistryService service_;
};

// The registry of the operating system.
[[nodiscard]] std::unique_ptr<HardwareRegistry> makeNativeHardwareRegistry();

} // namespace platform

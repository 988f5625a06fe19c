// A machine whose hardware is made up.
#pragma once

#include "Platform/HardwareRegistry.h"

#include <functional>
#include <map>
#include <utility>

namespace fakes {

// The device behind a made-up service, for as long as the registry lives.
struct FakeHidHardware
{
    // Hands a report to whoever listens; says whether somebody does.
    bool send(std::span<const std::byte> bytes, platform::RegistryResult result = platform::registrySuccess);

    platform::RegistryResult openResult = platform::registrySuccess;
    std::vector<std::string> calls; // of the device, in their order, by name
    bool isOpen = false;
    bool isScheduled = false;
    bool exists = false; // a device object of it does
    std::span<std::byte> buffer;
    platform::HidDevice::InputReportCallback callback;
};

// What is written here is what the registry answers with.
struct FakeService
{
    std::string className;
    std::map<std::string, platform::RegistryValue, std::less<>> properties = {};
    std::vector<std::pair<std::string, std::int32_t>> set = {}; // properties, in the order of the calls
    platform::RegistryResult setResult = platform::registrySuccess;
    platform::RegistryResult openResult = platform::registrySuccess;
    platform::RegistryResult callResult = platform::registrySuccess;
    std::vector<std::uint64_t> scalars = {}; // the reply to a scalar call
    std::vector<std::byte> reply = {};       // the reply to a struct call
    bool isHid = false;
    FakeHidHardware hid = {};
};

// Is the current registry for as long as it lives. Fails the test where something is released or closed that
// is not held or open, as what is released or closed twice. One thread at a time.
class FakeHardwareRegistry final : public platform::HardwareRegistry
{
public:
    struct Call
    {
        std::uint32_t selector;
        std::size_t inputSize;  // numbers or bytes
        std::size_t outputSize; // numbers or bytes
        bool isCleared;         // what goes in, and what the answer is written over, is zero

        bool operator==(const Call &) const = default;
    };

    // Adds a service behind those that are there; it stays where it is.
    FakeService &add(FakeService service);

    std::vector<platform::RegistryService> services(std::string_view className) override;
    platform::RegistryService firstService(std::string_view className) override;
    void release(platform::RegistryService service) override;
    std::optional<platform::RegistryValue> property(platform::RegistryService service,
                                                    std::string_view key) override;
    platform::RegistryResult setProperty(platform::RegistryService service, std::string_view key,
                                         std::int32_t value) override;
    platform::RegistryResult openUserClient(platform::RegistryService service, std::uint32_t type,
                                            platform::RegistryConnection &connection) override;
    void closeUserClient(platform::RegistryConnection connection) override;
    platform::RegistryResult callScalarMethod(platform::RegistryConnection connection, std::uint32_t selector,
                                              std::span<const std::uint64_t> input,
                                              std::span<std::uint64_t> output) override;
    platform::RegistryResult callStructMethod(platform::RegistryConnection connection, std::uint32_t selector,
                                              std::span<const std::byte> input,
                                              std::span<std::byte> output) override;
    std::unique_ptr<platform::HidDevice> createHidDevice(platform::RegistryService service) override;
    std::string modelName() override { return model; }

    // Services that were found and not released, and connections that were opened and not closed.
    [[nodiscard]] std::size_t heldServices() const { return held_.size(); }
    [[nodiscard]] std::size_t openConnections() const { return connections_.size(); }

    std::string model;
    std::vector<std::string> asked; // class names, in the order of the searches
    std::vector<std::uint32_t> clientTypes;
    std::vector<Call> calls;

private:
    std::uint32_t next_ = 1;
    std::vector<std::unique_ptr<FakeService>> services_;
    std::map<std::uint32_t, FakeService *> held_;
    std::map<std::uint32_t, FakeService *> connections_;
    platform::HardwareRegistryInstallation installation_{*this};
};

} // namespace fakes

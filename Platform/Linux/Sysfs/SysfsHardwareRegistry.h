// The registry of hardware on Linux: what the kernel shows below /sys, and the raw reports of HID devices.
#pragma once

#include "Platform/HardwareRegistry.h"
#include "Platform/Linux/Sysfs/HardwareService.h"
#include "Platform/Linux/Sysfs/NumberedTable.h"

namespace platform {

// What answers to which class name is in ServiceTable.cpp. Nothing is kept between two searches. Connections
// read their files anew at each call, so that hardware that went away fails, and works again when it is back.
class SysfsHardwareRegistry final : public HardwareRegistry
{
public:
    // `root` is the folder that sys/ and dev/ are in.
    explicit SysfsHardwareRegistry(std::filesystem::path root)
        : root_(std::move(root))
    {}

    std::vector<RegistryService> services(std::string_view className) override;
    RegistryService firstService(std::string_view className) override;
    void release(RegistryService service) override { services_.remove(service); }

    std::optional<RegistryValue> property(RegistryService service, std::string_view key) override;
    RegistryResult setProperty(RegistryService service, std::string_view key, std::int32_t value) override;

    RegistryResult openUserClient(RegistryService service, std::uint32_t type,
                                  RegistryConnection &connection) override;
    void closeUserClient(RegistryConnection connection) override { connections_.remove(connection); }
    RegistryResult callScalarMethod(RegistryConnection connection, std::uint32_t selector,
                                    std::span<const std::uint64_t> input,
                                    std::span<std::uint64_t> output) override;
    RegistryResult callStructMethod(RegistryConnection connection, std::uint32_t selector,
                                    std::span<const std::byte> input, std::span<std::byte> output) override;

    std::unique_ptr<HidDevice> createHidDevice(RegistryService service) override;

    // Of the firmware's tables (DMI), or else of the device tree.
    std::string modelName() override;

private:
    const std::filesystem::path root_;
    NumberedTable<const HardwareService> services_;
    NumberedTable<const UserClient> connections_;
};

} // namespace platform

// What stands behind a service of the registry on Linux.
#pragma once

#include "Platform/HidDevice.h"
#include "Platform/RegistryValue.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace platform {

inline constexpr RegistryResult registryFailure = -1;

// A driver that was connected to. Any thread, several at once. A call that the driver does not have, or
// cannot answer, fails and leaves the output as it was.
class UserClient
{
public:
    UserClient() = default;
    UserClient(const UserClient &) = delete;
    UserClient &operator=(const UserClient &) = delete;
    virtual ~UserClient() = default;

    virtual RegistryResult callScalarMethod(std::uint32_t /*selector*/,
                                            std::span<std::uint64_t> /*output*/) const
    {
        return registryFailure;
    }
    virtual RegistryResult callStructMethod(std::uint32_t /*selector*/, std::span<std::byte> /*output*/) const
    {
        return registryFailure;
    }
};

// A piece of hardware by what it can do here; what it cannot, it has no answer to. Any thread, several at
// once.
class HardwareService
{
public:
    HardwareService() = default;
    HardwareService(const HardwareService &) = delete;
    HardwareService &operator=(const HardwareService &) = delete;
    virtual ~HardwareService() = default;

    [[nodiscard]] virtual std::optional<RegistryValue> property(std::string_view /*key*/) const
    {
        return std::nullopt;
    }
    virtual RegistryResult setProperty(std::string_view /*key*/, std::int32_t /*value*/) const
    {
        return registryFailure;
    }
    // Nothing where it cannot be opened, or its driver does not answer.
    [[nodiscard]] virtual std::shared_ptr<UserClient> openUserClient() const { return nullptr; }
    [[nodiscard]] virtual std::unique_ptr<HidDevice> createHidDevice() const { return nullptr; }
};

using HardwareServices = std::vector<std::shared_ptr<const HardwareService>>;

} // namespace platform

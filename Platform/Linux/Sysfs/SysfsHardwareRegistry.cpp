#include "Platform/Linux/Sysfs/SysfsHardwareRegistry.h"

#include "Platform/Linux/Sysfs/ServiceTable.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <QByteArray>

#include <array>

namespace platform {

namespace {

constexpr const char *rootVariable = "STIRRA_HARDWARE_ROOT";
constexpr std::array modelFiles{"sys/class/dmi/id/product_name", "sys/firmware/devicetree/base/model"};

std::filesystem::path nativeRoot()
{
    return qEnvironmentVariableIsSet(rootVariable) ? qgetenv(rootVariable).toStdString() : "/";
}

} // namespace

std::vector<RegistryService> SysfsHardwareRegistry::services(std::string_view className)
{
    std::vector<RegistryService> numbers;
    for (auto &service : servicesOfClass(className, root_)) {
        numbers.push_back(services_.add(std::move(service)));
    }
    return numbers;
}

RegistryService SysfsHardwareRegistry::firstService(std::string_view className)
{
    auto found = servicesOfClass(className, root_);
    return found.empty() ? 0 : services_.add(std::move(found.front()));
}

std::optional<RegistryValue> SysfsHardwareRegistry::property(RegistryService service, std::string_view key)
{
    const auto found = services_.find(service);
    return found ? found->property(key) : std::nullopt;
}

RegistryResult SysfsHardwareRegistry::setProperty(RegistryService service, std::string_view key,
                                                  std::int32_t value)
{
    const auto found = services_.find(service);
    return found ? found->setProperty(key, value) : registryFailure;
}

RegistryResult SysfsHardwareRegistry::openUserClient(RegistryService service, std::uint32_t /*type*/,
                                                     RegistryConnection &connection)
{
    const auto found = services_.find(service);
    auto client = found ? found->openUserClient() : nullptr;
    connection = client ? connections_.add(std::move(client)) : 0;
    return connection != 0 ? registrySuccess : registryFailure;
}

RegistryResult SysfsHardwareRegistry::callScalarMethod(RegistryConnection connection, std::uint32_t selector,
                                                       std::span<const std::uint64_t> /*input*/,
                                                       std::span<std::uint64_t> output)
{
    const auto client = connections_.find(connection);
    return client ? client->callScalarMethod(selector, output) : registryFailure;
}

RegistryResult SysfsHardwareRegistry::callStructMethod(RegistryConnection connection, std::uint32_t selector,
                                                       std::span<const std::byte> /*input*/,
                                                       std::span<std::byte> output)
{
    const auto client = connections_.find(connection);
    return client ? client->callStructMethod(selector, output) : registryFailure;
}

std::unique_ptr<HidDevice> SysfsHardwareRegistry::createHidDevice(RegistryService service)
{
    const auto found = services_.find(service);
    return found ? found->createHidDevice() : nullptr;
}

std::string SysfsHardwareRegistry::modelName()
{
    for (const auto *const file : modelFiles) {
        const auto text = textOfFile(root_ / file).value_or("");
        if (const auto name = trimmedText(text); !name.empty()) {
            return std::string(name);
        }
    }
    return {};
}

std::unique_ptr<HardwareRegistry> makeNativeHardwareRegistry()
{
    return std::make_unique<SysfsHardwareRegistry>(nativeRoot());
}

} // namespace platform

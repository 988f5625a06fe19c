#include "Tests/Fakes/FakeHardwareRegistry.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fakes {

using platform::registrySuccess;

namespace {

constexpr platform::RegistryResult unknownNumber = -1;

class FakeHidDevice final : public platform::HidDevice
{
public:
    explicit FakeHidDevice(FakeHidHardware &hardware)
        : hardware_(hardware)
    {
        hardware_.exists = true;
    }

    ~FakeHidDevice() override
    {
        hardware_.exists = hardware_.isOpen = hardware_.isScheduled = false;
        hardware_.callback = {};
    }

    platform::RegistryResult open() override
    {
        hardware_.calls.emplace_back("open");
        hardware_.isOpen = hardware_.openResult == registrySuccess;
        return hardware_.openResult;
    }

    void registerInputReportCallback(std::span<std::byte> buffer, InputReportCallback callback) override
    {
        hardware_.calls.emplace_back(callback ? "register" : "unregister");
        hardware_.buffer = buffer;
        hardware_.callback = std::move(callback);
    }

    void scheduleWithMainLoop() override
    {
        hardware_.calls.emplace_back("schedule");
        hardware_.isScheduled = true;
    }

    void unscheduleFromMainLoop() override
    {
        hardware_.calls.emplace_back("unschedule");
        hardware_.isScheduled = false;
    }

    void close() override
    {
        hardware_.calls.emplace_back("close");
        hardware_.isOpen = false;
    }

private:
    FakeHidHardware &hardware_;
};

bool isZero(std::span<const std::byte> bytes)
{
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte(0); });
}

template <class Part> void copyPart(const std::vector<Part> &from, std::span<Part> to)
{
    std::copy_n(from.begin(), std::min(from.size(), to.size()), to.begin());
}

} // namespace

bool FakeHidHardware::send(std::span<const std::byte> bytes, platform::RegistryResult result)
{
    if (!isOpen || !isScheduled || !callback) {
        return false;
    }
    const auto size = std::min(bytes.size(), buffer.size());
    std::copy_n(bytes.begin(), size, buffer.begin());
    callback({.result = result, .bytes = buffer.first(size)});
    return true;
}

FakeService &FakeHardwareRegistry::add(FakeService service)
{
    return *services_.emplace_back(std::make_unique<FakeService>(std::move(service)));
}

std::vector<platform::RegistryService> FakeHardwareRegistry::services(std::string_view className)
{
    asked.emplace_back(className);
    std::vector<platform::RegistryService> found;
    for (const auto &service : services_) {
        if (service->className == className) {
            found.push_back(next_);
            held_[next_++] = service.get();
        }
    }
    return found;
}

platform::RegistryService FakeHardwareRegistry::firstService(std::string_view className)
{
    const auto found = services(className);
    for (std::size_t index = 1; index < found.size(); ++index) {
        release(found[index]);
    }
    return found.empty() ? 0 : found.front();
}

void FakeHardwareRegistry::release(platform::RegistryService service)
{
    if (held_.erase(service) == 0) {
        ADD_FAILURE() << "Service " << service << " is released, which is not held.";
    }
}

std::optional<platform::RegistryValue> FakeHardwareRegistry::property(platform::RegistryService service,
                                                                      std::string_view key)
{
    if (!held_.contains(service) || !held_[service]->properties.contains(key)) {
        return std::nullopt;
    }
    return held_[service]->properties.find(key)->second;
}

platform::RegistryResult FakeHardwareRegistry::setProperty(platform::RegistryService service,
                                                           std::string_view key, std::int32_t value)
{
    if (!held_.contains(service)) {
        return unknownNumber;
    }
    held_[service]->set.emplace_back(key, value);
    return held_[service]->setResult;
}

platform::RegistryResult FakeHardwareRegistry::openUserClient(platform::RegistryService service,
                                                              std::uint32_t type,
                                                              platform::RegistryConnection &connection)
{
    connection = 0;
    if (!held_.contains(service)) {
        return unknownNumber;
    }
    clientTypes.push_back(type);
    if (held_[service]->openResult == registrySuccess) {
        connection = next_++;
        connections_[connection] = held_[service];
    }
    return held_[service]->openResult;
}

void FakeHardwareRegistry::closeUserClient(platform::RegistryConnection connection)
{
    if (connections_.erase(connection) == 0) {
        ADD_FAILURE() << "Connection " << connection << " is closed, which is not open.";
    }
}

platform::RegistryResult FakeHardwareRegistry::callScalarMethod(platform::RegistryConnection connection,
                                                                std::uint32_t selector,
                                                                std::span<const std::uint64_t> input,
                                                                std::span<std::uint64_t> output)
{
    calls.push_back({selector, input.size(), output.size(), isZero(std::as_bytes(output))});
    if (!connections_.contains(connection)) {
        return unknownNumber;
    }
    const auto &service = *connections_[connection];
    if (service.callResult == registrySuccess) {
        copyPart(service.scalars, output);
    }
    return service.callResult;
}

platform::RegistryResult FakeHardwareRegistry::callStructMethod(platform::RegistryConnection connection,
                                                                std::uint32_t selector,
                                                                std::span<const std::byte> input,
                                                                std::span<std::byte> output)
{
    calls.push_back({selector, input.size(), output.size(), isZero(input) && isZero(output)});
    if (!connections_.contains(connection)) {
        return unknownNumber;
    }
    const auto &service = *connections_[connection];
    if (service.callResult == registrySuccess) {
        copyPart(service.reply, output);
    }
    return service.callResult;
}

std::unique_ptr<platform::HidDevice> FakeHardwareRegistry::createHidDevice(platform::RegistryService service)
{
    if (!held_.contains(service) || !held_[service]->isHid) {
        return nullptr;
    }
    return std::make_unique<FakeHidDevice>(held_[service]->hid);
}

} // namespace fakes

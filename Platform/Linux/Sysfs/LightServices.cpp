#include "Platform/Linux/Sysfs/LightServices.h"

#include "Platform/Linux/Sysfs/IioDevice.h"
#include "Platform/Linux/Sysfs/LightScale.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <algorithm>
#include <array>
#include <functional>

namespace platform {

namespace {

using std::filesystem::path;

constexpr std::uint32_t readingSelector = 0;
constexpr auto lightKind = "in_illuminance";
// A driver numbers its channels where it has several.
constexpr std::array lightChannels{"in_illuminance", "in_illuminance0"};

using Channels = std::array<std::uint64_t, 2>;
using Reading = std::function<std::optional<Channels>()>;

class LightClient final : public UserClient
{
public:
    explicit LightClient(Reading reading)
        : reading_(std::move(reading))
    {}

    RegistryResult callScalarMethod(std::uint32_t selector, std::span<std::uint64_t> output) const override
    {
        const auto channels =
            selector == readingSelector && output.size() == Channels().size() ? reading_() : std::nullopt;
        if (!channels) {
            return registryFailure;
        }
        std::ranges::copy(*channels, output.begin());
        return registrySuccess;
    }

private:
    const Reading reading_;
};

class LightService final : public HardwareService
{
public:
    explicit LightService(Reading reading)
        : reading_(std::move(reading))
    {}

    std::shared_ptr<UserClient> openUserClient() const override
    {
        return reading_() ? std::make_shared<LightClient>(reading_) : nullptr;
    }

private:
    const Reading reading_;
};

std::optional<Channels> readApplesmc(const path &file)
{
    std::array<double, 2> values{};
    const auto text = textOfFile(file);
    if (!text || !numbersInText(*text, values)) {
        return std::nullopt;
    }
    const auto left = lightOfByte(values[0]);
    return Channels{left, values[1] == 0 ? left : lightOfByte(values[1])};
}

std::optional<Channels> readIio(const path &device, std::string_view channel)
{
    const auto lux = iioValue(device, channel, lightKind);
    if (!lux) {
        return std::nullopt;
    }
    const auto light = lightOfLux(*lux);
    return Channels{light, light};
}

// Nothing where the device measures something else.
std::shared_ptr<const HardwareService> iioLight(const path &device)
{
    for (const auto *const channel : lightChannels) {
        if (!iioFile(device, channel).empty()) {
            return std::make_shared<LightService>([device, channel] { return readIio(device, channel); });
        }
    }
    return nullptr;
}

} // namespace

HardwareServices applesmcLights(const path &root)
{
    const auto file = root / "sys/devices/platform/applesmc.768/light";
    if (!isThere(file.c_str())) {
        return {};
    }
    return {std::make_shared<LightService>([file] { return readApplesmc(file); })};
}

HardwareServices iioLights(const path &root)
{
    HardwareServices lights;
    for (const auto &device : iioDevices(root)) {
        if (auto light = iioLight(device)) {
            lights.push_back(std::move(light));
        }
    }
    return lights;
}

} // namespace platform

#include "Platform/Linux/Sysfs/HingeServices.h"

#include "Platform/Linux/Sysfs/IioDevice.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

namespace platform {

namespace {

using std::filesystem::path;

constexpr auto angleProperty = "lid-angle";
constexpr auto angleKind = "in_angl";
constexpr auto hingeLabel = "hinge";
constexpr auto degreesDevice = "cros-ec-lid-angle";
constexpr double degreesPerRadian = 180 / std::numbers::pi;
constexpr double fullTurn = 360;
constexpr double tolerance = 0.5; // the kernel's scale of a degree is a bit more than pi / 180
constexpr int mostChannels = 16;

bool says(const path &file, std::string_view beginning)
{
    const auto text = textOfFile(file);
    return text && trimmedText(*text).starts_with(beginning);
}

class HingeService final : public HardwareService
{
public:
    HingeService(path device, std::string channel, double degreesPerUnit)
        : device_(std::move(device))
        , channel_(std::move(channel))
        , degreesPerUnit_(degreesPerUnit)
    {}

    std::optional<RegistryValue> property(std::string_view key) const override
    {
        return key == angleProperty ? angle() : std::nullopt;
    }

private:
    [[nodiscard]] std::optional<RegistryValue> angle() const
    {
        const auto value = iioValue(device_, channel_, angleKind);
        if (!value) {
            return std::nullopt;
        }
        const double degrees = *value * degreesPerUnit_;
        const double possible = std::clamp(degrees, 0.0, fullTurn);
        return std::abs(degrees - possible) <= tolerance ? std::optional<RegistryValue>(possible)
                                                         : std::nullopt;
    }

    const path device_;
    const std::string channel_;
    const double degreesPerUnit_;
};

std::shared_ptr<const HardwareService> hingeOf(const path &device)
{
    if (!iioFile(device, angleKind).empty()) {
        const bool isInDegrees = says(device / "name", degreesDevice);
        return isInDegrees ? std::make_shared<HingeService>(device, angleKind, 1) : nullptr;
    }
    for (int number = 0; number < mostChannels; ++number) {
        const auto channel = angleKind + std::to_string(number);
        if (iioFile(device, channel).empty()) {
            break;
        }
        if (says(device / (channel + "_label"), hingeLabel)) {
            return std::make_shared<HingeService>(device, channel, degreesPerRadian);
        }
    }
    return nullptr;
}

} // namespace

HardwareServices iioHinges(const path &root)
{
    HardwareServices hinges;
    for (const auto &device : iioDevices(root)) {
        if (auto hinge = hingeOf(device)) {
            hinges.push_back(std::move(hinge));
        }
    }
    return hinges;
}

} // namespace platform

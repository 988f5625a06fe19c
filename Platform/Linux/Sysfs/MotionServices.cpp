#include "Platform/Linux/Sysfs/MotionServices.h"

#include "Platform/Linux/Sysfs/IioDevice.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

namespace platform {

namespace {

using std::filesystem::path;

constexpr std::uint32_t readingSelector = 5;
constexpr std::size_t replyLength = 40;
constexpr double replyPerG = 256;

constexpr double applesmcPerG = 256;
constexpr double lis3lv02dPerG = 1000;
constexpr double hdapsPerG = 180;
constexpr double metresPerG = 9.80665;

constexpr auto accelerationKind = "in_accel";
constexpr std::array axisChannels{"in_accel_x", "in_accel_y", "in_accel_z"};

using Axes = std::array<double, 3>;
// The acceleration in g; nothing where it cannot be read.
using Reading = std::function<std::optional<Axes>()>;

std::uint16_t replyNumber(double g)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const double counts = std::clamp<double>(std::round(g * replyPerG), Limits::min(), Limits::max());
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(counts));
}

void writeReply(const Axes &axes, std::span<std::byte> reply)
{
    std::ranges::fill(reply, std::byte(0));
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        const auto number = replyNumber(axes[axis]);
        reply[2 * axis] = static_cast<std::byte>(number & 0xFFU);
        reply[2 * axis + 1] = static_cast<std::byte>(number >> 8U);
    }
}

class MotionClient final : public UserClient
{
public:
    explicit MotionClient(Reading reading)
        : reading_(std::move(reading))
    {}

    RegistryResult callStructMethod(std::uint32_t selector, std::span<std::byte> output) const override
    {
        const auto axes =
            selector == readingSelector && output.size() == replyLength ? reading_() : std::nullopt;
        if (!axes) {
            return registryFailure;
        }
        writeReply(*axes, output);
        return registrySuccess;
    }

private:
    const Reading reading_;
};

class MotionService final : public HardwareService
{
public:
    explicit MotionService(Reading reading)
        : reading_(std::move(reading))
    {}

    std::shared_ptr<UserClient> openUserClient() const override
    {
        return reading_() ? std::make_shared<MotionClient>(reading_) : nullptr;
    }

private:
    const Reading reading_;
};

HardwareServices serviceOf(const path &file, Reading reading)
{
    if (!isThere(file.c_str())) {
        return {};
    }
    return {std::make_shared<MotionService>(std::move(reading))};
}

bool readTuple(const path &file, std::span<double> numbers)
{
    const auto text = textOfFile(file);
    return text && numbersInText(*text, numbers);
}

std::optional<Axes> readPosition(const path &file, double countsPerG)
{
    Axes axes{};
    if (!readTuple(file, axes)) {
        return std::nullopt;
    }
    std::ranges::transform(axes, axes.begin(), [countsPerG](double counts) { return counts / countsPerG; });
    return axes;
}

std::optional<Axes> readHdaps(const path &folder)
{
    std::array<double, 2> position{};
    std::array<double, 2> rest{};
    if (!readTuple(folder / "position", position) || !readTuple(folder / "calibrate", rest)) {
        return std::nullopt;
    }
    return Axes{(position[0] - rest[0]) / hdapsPerG, (position[1] - rest[1]) / hdapsPerG, 0};
}

std::optional<Axes> readIio(const path &device)
{
    Axes axes{};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        const auto acceleration = iioValue(device, axisChannels[axis], accelerationKind);
        if (!acceleration) {
            return std::nullopt;
        }
        axes[axis] = *acceleration / metresPerG;
    }
    return axes;
}

bool isAccelerometer(const path &device)
{
    return std::ranges::none_of(axisChannels,
                                [&device](const char *channel) { return iioFile(device, channel).empty(); });
}

} // namespace

HardwareServices applesmcMotion(const path &root)
{
    const auto file = root / "sys/devices/platform/applesmc.768/position";
    return serviceOf(file, [file] { return readPosition(file, applesmcPerG); });
}

HardwareServices lis3lv02dMotion(const path &root)
{
    const auto file = root / "sys/devices/platform/lis3lv02d/position";
    return serviceOf(file, [file] { return readPosition(file, lis3lv02dPerG); });
}

HardwareServices hdapsMotion(const path &root)
{
    const auto folder = root / "sys/devices/platform/hdaps";
    return serviceOf(folder / "position", [folder] { return readHdaps(folder); });
}

HardwareServices iioMotion(const path &root)
{
    HardwareServices services;
    for (const auto &device : iioDevices(root)) {
        if (isAccelerometer(device)) {
            services.push_back(std::make_shared<MotionService>([device] { return readIio(device); }));
        }
    }
    return services;
}

} // namespace platform

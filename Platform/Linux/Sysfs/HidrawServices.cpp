#include "Platform/Linux/Sysfs/HidrawServices.h"

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sysfs/HidFeature.h"
#include "Platform/Linux/Sysfs/HidrawDevice.h"
#include "Platform/Linux/Sysfs/SysfsFile.h"

#include <fcntl.h>
#include <linux/hidraw.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <string>

namespace platform {

namespace {

using std::filesystem::path;

constexpr HidUsage accelerometer{0xFF00, 3};

// A HID device by what its descriptor says, which never changes.
struct Hidraw
{
    path node;
    HidReportDescriptor descriptor;
};

std::optional<HidReportDescriptor> descriptorIn(const path &file)
{
    const auto text = textOfFile(file, HID_MAX_DESCRIPTOR_SIZE);
    return text ? parsedReportDescriptor(std::as_bytes(std::span(*text))) : std::nullopt;
}

std::vector<Hidraw> hidraws(const path &root)
{
    std::vector<Hidraw> found;
    for (const auto &folder : numberedPaths(root / "sys/class/hidraw", "hidraw")) {
        auto descriptor = descriptorIn(folder / "device/report_descriptor");
        found.push_back(
            {root / "dev" / folder.filename(), std::move(descriptor).value_or(HidReportDescriptor())});
    }
    return found;
}

// One that cannot be opened fails at each call.
class KernelFeatureFile final : public HidFeatureFile
{
public:
    explicit KernelFeatureFile(const path &node)
        : file_(open(node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC))
    {}

    int get(std::span<std::byte> report) override
    {
        const int size = ioctl(file_.get(), HIDIOCGFEATURE(report.size()), report.data());
        return size < 0 ? -errno : size;
    }

    int set(std::span<std::byte> report) override
    {
        return ioctl(file_.get(), HIDIOCSFEATURE(report.size()), report.data()) < 0 ? errno : 0;
    }

private:
    const FileDescriptor file_;
};

class HidrawDeviceService final : public HardwareService
{
public:
    explicit HidrawDeviceService(const Hidraw &hidraw)
        : node_(hidraw.node)
        , usage_(hidraw.descriptor.primaryUsage)
        , hasReportIds_(hidraw.descriptor.hasReportIds)
    {}

    std::optional<RegistryValue> property(std::string_view key) const override
    {
        if (usage_ && key == "PrimaryUsagePage") {
            return std::int64_t{usage_->page};
        }
        if (usage_ && key == "PrimaryUsage") {
            return std::int64_t{usage_->id};
        }
        return std::nullopt;
    }

    std::unique_ptr<HidDevice> createHidDevice() const override
    {
        return std::make_unique<HidrawDevice>(node_, hasReportIds_);
    }

private:
    const path node_;
    const std::optional<HidUsage> usage_;
    const bool hasReportIds_;
};

class HidrawDriverService final : public HardwareService
{
public:
    explicit HidrawDriverService(Hidraw hidraw)
        : hidraw_(std::move(hidraw))
    {}

    RegistryResult setProperty(std::string_view key, std::int32_t value) const override
    {
        const auto setting = hidSetting(hidraw_.descriptor, key, value);
        if (!setting) { // the device is not opened, which would power it up
            return registryFailure;
        }
        KernelFeatureFile file(hidraw_.node);
        return applySetting(*setting, file);
    }

private:
    const Hidraw hidraw_;
};

} // namespace

HardwareServices hidrawDevices(const path &root)
{
    HardwareServices services;
    for (const auto &hidraw : hidraws(root)) {
        services.push_back(std::make_shared<HidrawDeviceService>(hidraw));
    }
    return services;
}

HardwareServices hidrawDrivers(const path &root)
{
    HardwareServices services;
    for (auto &hidraw : hidraws(root)) {
        if (hidraw.descriptor.primaryUsage == accelerometer) {
            services.push_back(std::make_shared<HidrawDriverService>(std::move(hidraw)));
        }
    }
    return services;
}

} // namespace platform

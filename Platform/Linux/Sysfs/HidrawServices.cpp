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
        return setting ? apply(*setting) : registryFailure;
    }

private:
    // The rest of the report is left as the device has it.
    [[nodiscard]] RegistryResult apply(const HidSetting &setting) const
    {
        const FileDescriptor file(open(hidraw_.node.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
        std::vector<std::byte> report(1 + setting.reportSize);
        report.front() = static_cast<std::byte>(setting.reportId);
        if (!file.isOpen() || ioctl(file.get(), HIDIOCGFEATURE(report.size()), report.data()) < 0) {
            return errno;
        }
        report.front() = static_cast<std::byte>(setting.reportId);
        writeSetting(setting, report);
        return ioctl(file.get(), HIDIOCSFEATURE(report.size()), report.data()) < 0 ? errno : registrySuccess;
    }

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

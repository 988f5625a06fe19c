#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"

#include "Foundation/CheckedArithmetic.h"
#include "SharedCore/SensorManager/RegistryNumber.h"

#include <array>

namespace sharedcore {

using platform::HardwareRegistry;
using platform::HidDevice;
using platform::InputReport;
using platform::RegistryService;
using platform::ServiceHolder;

namespace {

using Backend = AppleSPUHIDAccelerometerBackend;

constexpr auto driverService = "AppleSPUHIDDriver";
constexpr auto deviceService = "AppleSPUHIDDevice";

constexpr std::array<std::pair<std::string_view, std::int32_t>, 3> awakeProperties{{
    {"SensorPropertyReportingState", 1},
    {"SensorPropertyPowerState", 1},
    {"ReportInterval", 1000},
}};

bool isAccelerometer(RegistryService service)
{
    return Backend::primaryUsagePair(service) ==
           std::pair{Backend::vendorUsagePage, Backend::usageAccelerometer};
}

std::unique_ptr<HidDevice> openedDevice(HardwareRegistry &registry, RegistryService service)
{
    auto device = isAccelerometer(service) ? registry.createHidDevice(service) : nullptr;
    const bool isOpen = device && device->open() == platform::registrySuccess;
    return isOpen ? std::move(device) : nullptr;
}

// All services are released, also those behind the one that is taken.
std::unique_ptr<HidDevice> openedAccelerometer()
{
    auto &registry = HardwareRegistry::current();
    std::unique_ptr<HidDevice> device;
    for (const auto service : registry.services(deviceService)) {
        const ServiceHolder holder(registry, service);
        if (!device) {
            device = openedDevice(registry, service);
        }
    }
    return device;
}

} // namespace

bool AppleSPUHIDAccelerometerBackend::open()
{
    close();
    wakeSPUDrivers();
    hidDevice_ = openedAccelerometer();
    if (!hidDevice_) {
        return false;
    }
    reportBuffer_.resize(reportBufferSize);
    hidDevice_->registerInputReportCallback(reportBuffer_,
                                            [this](const InputReport &report) { inputReport(this, report); });
    hidDevice_->scheduleWithMainLoop();
    return true;
}

void AppleSPUHIDAccelerometerBackend::close()
{
    if (hidDevice_) {
        hidDevice_->registerInputReportCallback(reportBuffer_, {});
        hidDevice_->unscheduleFromMainLoop();
        hidDevice_->close();
        hidDevice_.reset();
    }
    reportBuffer_ = {};
}

MotionSensor::Data AppleSPUHIDAccelerometerBackend::readLockedCopy() const
{
    const std::scoped_lock lock(lock_);
    return latest_;
}

void AppleSPUHIDAccelerometerBackend::wakeSPUDrivers()
{
    auto &registry = HardwareRegistry::current();
    for (const auto service : registry.services(driverService)) {
        const ServiceHolder holder(registry, service);
        for (const auto &[key, value] : awakeProperties) {
            ioRegistrySetSInt32(service, key, value);
        }
    }
}

void AppleSPUHIDAccelerometerBackend::ioRegistrySetSInt32(RegistryService entry, std::string_view key,
                                                          std::int32_t value)
{
    HardwareRegistry::current().setProperty(entry, key, value);
}

std::optional<std::pair<std::int32_t, std::int32_t>>
AppleSPUHIDAccelerometerBackend::primaryUsagePair(RegistryService service)
{
    auto &registry = HardwareRegistry::current();
    const auto page = int32Of(registry.property(service, "PrimaryUsagePage"));
    const auto usage = int32Of(registry.property(service, "PrimaryUsage"));
    return page && usage ? std::optional(std::pair{*page, *usage}) : std::nullopt;
}

void AppleSPUHIDAccelerometerBackend::inputReport(AppleSPUHIDAccelerometerBackend *context,
                                                  const InputReport &report)
{
    if (report.result != platform::registrySuccess || !context) {
        return;
    }
    if (report.bytes.size() == imuReportLength) {
        context->handleReport(report.bytes.first<imuReportLength>());
    }
}

void AppleSPUHIDAccelerometerBackend::handleReport(Report report)
{
    decimationTick_ = foundation::checkedSum(decimationTick_, 1);
    if (decimationTick_ % decimationStride != 0) {
        return;
    }
    const auto sample = decoded(report);
    const std::scoped_lock lock(lock_);
    latest_ = sample;
}

} // namespace sharedcore

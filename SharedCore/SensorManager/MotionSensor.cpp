#include "SharedCore/SensorManager/MotionSensor.h"

#include "Platform/HardwareRegistry.h"
#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"
#include "SharedCore/SensorManager/MotionReply.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace sharedcore {

using platform::HardwareRegistry;

namespace {

constexpr std::array legacyServices{"IOHIDMotionSensor", "AppleEmbeddedMotionSensor", "SMCMotionSensor"};
constexpr std::uint32_t userClientType = 0;
constexpr std::uint32_t readingSelector = 5;

} // namespace

MotionSensor::MotionSensor() = default;

MotionSensor::~MotionSensor()
{
    close();
}

bool MotionSensor::open()
{
    return openDriver() || openReports();
}

bool MotionSensor::openDriver()
{
    close();
    isOpen_ = std::ranges::any_of(legacyServices, [this](auto name) { return openUserClient(name); });
    return isOpen_;
}

bool MotionSensor::openReports()
{
    close();
    isOpen_ = openBackend();
    return isOpen_;
}

bool MotionSensor::openUserClient(const char *serviceName)
{
    auto &registry = HardwareRegistry::current();
    const platform::ServiceHolder service(registry, registry.firstService(serviceName));
    if (service.isEmpty() ||
        registry.openUserClient(service.get(), userClientType, connect_) != platform::registrySuccess) {
        return false;
    }
    sensorType_ = serviceName;
    std::puts(("✅ MotionSensor: Opened " + sensorType_).c_str());
    return true;
}

bool MotionSensor::openBackend()
{
    auto backend = std::make_unique<AppleSPUHIDAccelerometerBackend>();
    if (!backend->open()) {
        std::puts("⚠️ MotionSensor: No accelerometer found (desktop Mac or unsupported model)");
        return false;
    }
    spuBackend_ = std::move(backend);
    sensorType_ = "AppleSPUHIDDevice(accel)";
    std::puts("✅ MotionSensor: Opened Apple SPU HID accelerometer (experimental)");
    return true;
}

MotionSensor::Data MotionSensor::read() const
{
    if (!isOpen_) {
        return {};
    }
    if (spuBackend_) {
        return spuBackend_->readLockedCopy();
    }
    const std::array<std::byte, MotionReply::length> input{};
    std::array<std::byte, MotionReply::length> output{};
    HardwareRegistry::current().callStructMethod(connect_, readingSelector, input, output);
    return MotionReply::decoded(output);
}

void MotionSensor::close()
{
    if (spuBackend_) {
        spuBackend_->close();
        spuBackend_.reset();
    }
    if (connect_ != 0) {
        HardwareRegistry::current().closeUserClient(connect_);
        connect_ = 0;
    }
    isOpen_ = false;
}

} // namespace sharedcore

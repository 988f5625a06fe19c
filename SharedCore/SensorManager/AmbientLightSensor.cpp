#include "SharedCore/SensorManager/AmbientLightSensor.h"

#include "Foundation/CheckedArithmetic.h"
#include "Platform/HardwareRegistry.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace sharedcore {

using platform::HardwareRegistry;

namespace {

constexpr auto serviceName = "AppleLMUController";
constexpr std::uint32_t userClientType = 0;
constexpr std::uint32_t readingSelector = 0;
constexpr double fullBrightness = 50'000'000.0;

} // namespace

AmbientLightSensor::~AmbientLightSensor()
{
    close();
}

bool AmbientLightSensor::open()
{
    close();
    auto &registry = HardwareRegistry::current();
    const platform::ServiceHolder service(registry, registry.firstService(serviceName));
    if (service.isEmpty()) {
        std::puts("⚠️ AmbientLightSensor: AppleLMUController not found");
        return false;
    }
    isOpen_ = registry.openUserClient(service.get(), userClientType, connect_) == platform::registrySuccess;
    return isOpen_;
}

std::uint64_t AmbientLightSensor::readRaw() const
{
    if (!isOpen_) {
        return 0;
    }
    std::array<std::uint64_t, 2> channels{};
    HardwareRegistry::current().callScalarMethod(connect_, readingSelector, {}, channels);
    return foundation::checkedUnsignedSum(channels[0], channels[1]) / 2;
}

double AmbientLightSensor::readNormalized() const
{
    return std::min(static_cast<double>(readRaw()) / fullBrightness, 1.0);
}

void AmbientLightSensor::close()
{
    if (isOpen_) {
        HardwareRegistry::current().closeUserClient(connect_);
        isOpen_ = false;
    }
}

} // namespace sharedcore

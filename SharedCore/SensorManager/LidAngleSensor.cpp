#include "SharedCore/SensorManager/LidAngleSensor.h"

#include "Platform/HardwareRegistry.h"
#include "SharedCore/SensorManager/RegistryNumber.h"

namespace sharedcore {

using platform::HardwareRegistry;

namespace {

constexpr auto displayService = "AppleBacklightDisplay";
constexpr auto angleProperty = "lid-angle";
constexpr double unknownAngle = 90.0;
constexpr double widestEstimate = 135.0;

} // namespace

std::optional<double> LidAngleSensor::readDirect()
{
    auto &registry = HardwareRegistry::current();
    const platform::ServiceHolder display(registry, registry.firstService(displayService));
    if (display.isEmpty()) {
        return std::nullopt;
    }
    return doubleOf(registry.property(display.get(), angleProperty));
}

double LidAngleSensor::readEstimated()
{
    if (!als_.open()) {
        return unknownAngle;
    }
    const double light = als_.readNormalized();
    als_.close();
    return light * widestEstimate;
}

double LidAngleSensor::read()
{
    const auto direct = readDirect();
    return direct ? *direct : readEstimated();
}

bool LidAngleSensor::isMacBook()
{
    return HardwareRegistry::current().modelName().find("MacBook") != std::string::npos;
}

} // namespace sharedcore

// Reads every sensor of the machine that it runs on, a made-up one, and prints what it finds:
//   model NAME, lid DEGREES, light PART, property NAME RESULT, motion X Y Z
// The motion is the first that is not zero; without any within 20 s it is zero.

#include "Platform/HardwareRegistry.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"
#include "Tests/Support/Eventually.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

using platform::HardwareRegistry;
using sharedcore::MotionSensor;

void printProperty(const char *name, std::int32_t value)
{
    auto &registry = HardwareRegistry::current();
    const platform::ServiceHolder driver(registry, registry.firstService("AppleSPUHIDDriver"));
    std::printf("property %s %d\n", name, registry.setProperty(driver.get(), name, value));
}

void printMotion()
{
    MotionSensor sensor;
    if (!sensor.open()) {
        return;
    }
    static_cast<void>(testsupport::eventually([&sensor] { return sensor.read() != MotionSensor::Data(); },
                                              std::chrono::seconds(20)));
    const auto data = sensor.read();
    std::printf("motion %.3f %.3f %.3f\n", data.x, data.y, data.z);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::printf("model %s %s\n", HardwareRegistry::current().modelName().c_str(),
                sharedcore::LidAngleSensor::isMacBook() ? "portable" : "desktop");
    std::printf("lid %.3f\n", sharedcore::LidAngleSensor().read());
    sharedcore::AmbientLightSensor light;
    light.open();
    std::printf("light %.3f\n", light.readNormalized());
    printProperty("SensorPropertyReportingState", 1);
    printProperty("SensorPropertyPowerState", 1);
    printProperty("ReportInterval", 1000);
    printMotion();
}

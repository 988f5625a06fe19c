// How far a portable's lid is open.
#pragma once

#include "SharedCore/SensorManager/AmbientLightSensor.h"

#include <optional>

namespace sharedcore {

// Angles are in degrees: 0 is closed. Each sensor is used from one thread at a time. It works with the
// registry of hardware that is current, and opens what it reads for the time of a call.
class LidAngleSensor
{
public:
    // The angle that the display itself tells; nothing where it tells none.
    [[nodiscard]] static std::optional<double> readDirect();

    // The angle guessed from the light that reaches the sensor beside the display: from 0 in darkness to 135
    // in full brightness, and 90 where no light sensor can be opened. Opening prints what
    // AmbientLightSensor::open() does.
    [[nodiscard]] double readEstimated();

    // The direct reading, or else the estimate.
    [[nodiscard]] double read();

    // Whether the machine is a portable, by its model's name.
    [[nodiscard]] static bool isMacBook();

private:
    AmbientLightSensor als_;
};

} // namespace sharedcore

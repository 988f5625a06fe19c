// The ambient light that falls on a portable.
#pragma once

#include "Platform/RegistryValue.h"

#include <cstdint>

namespace sharedcore {

// Each sensor is used from one thread at a time. It works with the registry of hardware that is current, and
// holds nothing of it while it is closed.
class AmbientLightSensor
{
public:
    AmbientLightSensor() = default;
    AmbientLightSensor(const AmbientLightSensor &) = delete;
    AmbientLightSensor &operator=(const AmbientLightSensor &) = delete;
    // Closes the sensor.
    ~AmbientLightSensor();

    // Opens the light controller, anew where it is open. False where there is none, which it says with a line
    // on the standard output, and where it cannot be opened.
    bool open();

    // The mean of the controller's two channels, in its own unit, rounded down; 0 while the sensor is closed
    // or cannot be read. Channels whose sum is beyond 64 bits are a fatal error.
    [[nodiscard]] std::uint64_t readRaw() const;

    // The same from 0 (dark) to 1 (50,000,000 and brighter).
    [[nodiscard]] double readNormalized() const;

    // May be called at any time.
    void close();

private:
    platform::RegistryConnection connect_ = 0;
    bool isOpen_ = false;
};

} // namespace sharedcore

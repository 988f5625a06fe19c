// What the driver of an accelerometer replies. Private to the sensors; any thread, nothing is allocated.
#pragma once

#include "SharedCore/SensorManager/LittleEndian.h"
#include "SharedCore/SensorManager/MotionSensor.h"

namespace sharedcore {

// 40 bytes, of which the first six are x, y and z, each 16 bits, signed, the lowest byte first, in 1/256 g.
struct MotionReply
{
    static constexpr std::size_t length = 40;
    static constexpr double countsPerG = 256.0;

    [[nodiscard]] static constexpr MotionSensor::Data decoded(std::span<const std::byte, length> reply)
    {
        const auto axis = [reply](std::size_t number) {
            return littleEndianAt<std::int16_t>(reply, number * sizeof(std::int16_t)) / countsPerG;
        };
        return {axis(0), axis(1), axis(2)};
    }
};

} // namespace sharedcore

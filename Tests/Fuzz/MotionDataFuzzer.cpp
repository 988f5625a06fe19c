// Reports and replies of accelerometers from any bytes, of any length and at any address. The backend keeps
// the eighth of those that have the right length, and what it keeps is within what 32 bits can say.

#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"
#include "SharedCore/SensorManager/MotionReply.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

using namespace sharedcore;
using Backend = AppleSPUHIDAccelerometerBackend;

void require(bool isTrue)
{
    if (!isTrue) {
        std::abort();
    }
}

bool isWithin(const MotionSensor::Data &data, double most)
{
    return std::abs(data.x) <= most && std::abs(data.y) <= most && std::abs(data.z) <= most;
}

// The input is cut into reports: each begins with its length.
void sendReports(std::span<const std::byte> bytes)
{
    Backend backend;
    std::size_t count = 0;
    MotionSensor::Data expected;
    while (!bytes.empty()) {
        const auto size = std::min(std::to_integer<std::size_t>(bytes.front()), bytes.size() - 1);
        const auto report = bytes.subspan(1, size);
        Backend::inputReport(&backend, {.bytes = report});
        if (size == Backend::imuReportLength && ++count % 8 == 0) {
            expected = Backend::decoded(report.first<Backend::imuReportLength>());
        }
        bytes = bytes.subspan(1 + size);
    }
    require(backend.readLockedCopy() == expected && isWithin(expected, 32768));
}

} // namespace

// Reports come without any hardware here.
platform::HardwareRegistry &platform::HardwareRegistry::current()
{
    std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    sendReports(bytes);
    if (size >= MotionReply::length) {
        require(isWithin(MotionReply::decoded(bytes.first<MotionReply::length>()), 128));
    }
    return 0;
}

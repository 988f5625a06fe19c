#include "Benchmarks/Sections.h"
#include "Benchmarks/SensorMachine.h"
#include "Benchmarks/Statistics.h"
#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "Tests/Support/AllocationCount.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <iterator>

namespace benchmarks {

namespace {

using Backend = sharedcore::AppleSPUHIDAccelerometerBackend;
using Clock = std::chrono::steady_clock;

constexpr int decodedReports = 20'000'000;
constexpr int reportsInMemory = 1024; // more than the processor's first cache holds along with the rest
constexpr int lidReadings = 2000;

std::vector<std::vector<std::byte>> someReports()
{
    std::vector<std::vector<std::byte>> reports;
    reports.reserve(reportsInMemory);
    for (int number = 0; number < reportsInMemory; ++number) {
        reports.push_back(testsupport::accelerometerReport(number));
    }
    return reports;
}

// Nanoseconds for a report; each goes through `take`, and none may allocate anything.
template <class Take> double timeOfReport(const Take &take)
{
    const auto reports = someReports();
    const auto allocations = testsupport::allocationCount();
    const double start = threadSeconds();
    for (int count = 0; count < decodedReports; ++count) {
        const auto &report = reports[static_cast<std::size_t>(count % reportsInMemory)];
        take(Backend::Report(report));
    }
    const double time = threadSeconds() - start;
    require(testsupport::allocationCount() == allocations, "a report allocates memory");
    return 1e9 * time / decodedReports;
}

Row decodingRow()
{
    double sum = 0;
    const double time = timeOfReport([&sum](Backend::Report report) {
        const auto data = Backend::decoded(report);
        sum += data.x + data.y + data.z;
    });
    require(sum > 0, "nothing was decoded");
    return limitRow("decoding of a report (50 million a second)", time, 20, "ns");
}

Row handlingRow()
{
    Backend backend;
    const double time = timeOfReport([&backend](Backend::Report report) { backend.handleReport(report); });
    require(backend.readLockedCopy().x > 0, "no report was kept");
    return limitRow("handling of a report, one in eight kept", time, 20, "ns");
}

// What is printed meanwhile goes nowhere.
class Silence
{
public:
    Silence()
    {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDOUT_FILENO);
        ::close(nowhere);
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;
    ~Silence()
    {
        std::fflush(stdout);
        dup2(output_, STDOUT_FILENO);
        ::close(output_);
    }

private:
    const int output_ = dup(STDOUT_FILENO);
};

double lidReadingTime()
{
    const Silence silence;
    sharedcore::LidAngleSensor sensor;
    std::vector<double> times;
    for (int count = 0; count < lidReadings; ++count) {
        const auto start = Clock::now();
        require(sensor.read() == 90, "there is a lid");
        times.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    return median(times);
}

// Channels of sensors that tell neither a lid nor the light.
constexpr std::array<std::array<const char *, 2>, 5> otherSensors{{
    {"accel_3d", "in_accel_x_raw"},
    {"gyro_3d", "in_anglvel_x_raw"},
    {"magn_3d", "in_magn_x_raw"},
    {"dev_rotation", "in_rot_quaternion_raw"},
    {"bmp280", "in_pressure_input"},
}};

Row bareLidRow()
{
    const SensorMachine machine;
    return limitRow("angle of the lid, no sensor there", lidReadingTime(), 50, "us");
}

Row lidRow()
{
    const SensorMachine machine;
    for (std::size_t number = 0; number < otherSensors.size(); ++number) {
        const auto folder = "bus/iio/devices/iio:device" + std::to_string(number) + '/';
        machine.write(folder + "name", otherSensors[number][0]);
        machine.write(folder + otherSensors[number][1], "1");
    }
    for (int number = 0; number < 3; ++number) {
        static_cast<void>(machine.addHidraw(number, {}));
    }
    return limitRow("angle of the lid, five other sensors there", lidReadingTime(), 50, "us");
}

} // namespace

std::vector<Row> sensorRows()
{
    std::vector<Row> rows{decodingRow(), handlingRow()};
    std::ranges::move(sensorStreamRows(), std::back_inserter(rows));
    rows.push_back(bareLidRow());
    rows.push_back(lidRow());
    return rows;
}

} // namespace benchmarks

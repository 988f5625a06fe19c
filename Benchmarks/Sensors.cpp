#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "Platform/Linux/Sysfs/SysfsHardwareRegistry.h"
#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "Tests/Support/AllocationCount.h"
#include "Tests/Support/ReportPipe.h"
#include "Tests/Support/TemporaryFolder.h"

#include <QEventLoop>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <thread>

namespace benchmarks {

namespace {

using namespace std::chrono_literals;
using Backend = sharedcore::AppleSPUHIDAccelerometerBackend;
using Clock = std::chrono::steady_clock;

constexpr int decodedReports = 20'000'000;
constexpr int reportsInMemory = 1024; // more than the processor's first cache holds along with the rest
constexpr auto reportDistance = 250us;
constexpr int streamedReports = 20'000; // of 5 s
constexpr int lidReadings = 2000;

void require(bool isTrue, const char *otherwise)
{
    if (!isTrue) {
        throw NotMeasured(otherwise);
    }
}

// CPU time of the calling thread.
double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

std::vector<std::vector<std::byte>> someReports()
{
    std::vector<std::vector<std::byte>> reports;
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

// A machine in a folder, which is current.
class Machine
{
public:
    [[nodiscard]] const std::filesystem::path &root() const { return folder_.path(); }

    // The device's file.
    [[nodiscard]] std::filesystem::path addAccelerometer() const
    {
        const auto file = root() / "sys/class/hidraw/hidraw0/device/report_descriptor";
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << "\x06" << '\0' << "\xFF\x09\x03\xA1\x01\xC0";
        return testsupport::makeReportPipe(root() / "dev/hidraw0");
    }

private:
    testsupport::TemporaryFolder folder_;
    platform::SysfsHardwareRegistry registry_{folder_.path()};
    platform::HardwareRegistryInstallation installation_{registry_};
};

// Numbered reports at their times; says how many found no room.
int sendStream(const testsupport::ReportPipe &pipe)
{
    const auto start = Clock::now();
    int lost = 0;
    for (int number = 1; number <= streamedReports; ++number) {
        std::this_thread::sleep_until(start + number * reportDistance);
        lost += pipe.write(testsupport::accelerometerReport(number)) ? 0 : 1;
    }
    return lost;
}

void runLoopFor(std::chrono::milliseconds duration)
{
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

Row streamRow()
{
    const Machine machine;
    const auto node = machine.addAccelerometer();
    Backend backend;
    require(backend.open(), "the accelerometer does not open");
    const testsupport::ReportPipe pipe(node);
    int lost = 0;
    std::jthread sender([&] { lost = sendStream(pipe); });
    const double before = threadSeconds();
    runLoopFor(std::chrono::duration_cast<std::chrono::milliseconds>(streamedReports * reportDistance));
    const double used = threadSeconds() - before;
    sender.join();
    const auto name = "CPU time of 4,000 reports a second, " + std::to_string(lost) + " of 20,000 lost";
    const std::chrono::duration<double> duration = streamedReports * reportDistance;
    return limitRow(name, 100 * used / duration.count(), 1, "%");
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

Row lidRow()
{
    const Machine machine;
    return limitRow("angle of the lid without a sensor", lidReadingTime(), 50, "us");
}

} // namespace

std::vector<Row> sensorRows()
{
    return {decodingRow(), handlingRow(), streamRow(), lidRow()};
}

} // namespace benchmarks

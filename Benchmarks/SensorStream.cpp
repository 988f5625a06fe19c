#include "Benchmarks/SensorMachine.h"
#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sysfs/HidrawDevice.h"
#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"

#include <QEventLoop>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace benchmarks {

namespace {

using namespace std::chrono_literals;
using platform::HidrawDevice;
using Backend = sharedcore::AppleSPUHIDAccelerometerBackend;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr auto sendingDistance = 1ms;
constexpr int reportsAtOnce = 4;
constexpr int streamedReports = 20'000; // of 5 s
constexpr auto moment = 100ms;
constexpr Seconds streamLength = streamedReports / reportsAtOnce * sendingDistance;
constexpr std::string_view accelerometer{"\x06\x00\xFF\x09\x03\xA1\x01\xC0", 8};

// What became of a stream.
struct Stream
{
    double cost = 0; // of taking it, in % of a core
    int sent = 0;
    int lost = 0;       // reports that found no room
    int lastEighth = 0; // the number of the last one that was sent as the eighth

    [[nodiscard]] double lostPart() const { return 100.0 * lost / streamedReports; } // in %
};

// Sends numbered reports, four each millisecond. A device has a clock of its own: where this thread is late
// it makes up for that, a quarter faster than planned, as no device sends a heap of reports at once.
void send(const std::filesystem::path &node, Stream &stream)
{
    const testsupport::ReportPipe pipe(node);
    auto last = Clock::now();
    const auto start = last;
    for (int number = 1; number <= streamedReports; ++number) {
        if (number % reportsAtOnce == 0) {
            const auto time = start + number / reportsAtOnce * sendingDistance;
            std::this_thread::sleep_until(std::max(time, last + sendingDistance * 4 / 5));
            last = Clock::now();
        }
        if (!pipe.write(testsupport::accelerometerReport(number))) {
            ++stream.lost;
        } else if (++stream.sent % Backend::decimationStride == 0) {
            stream.lastEighth = number;
        }
    }
    require(last - start < 1.1 * streamLength, "the reports could not be sent at their times");
}

// `take` takes reports on this thread until it is told that the stream is over.
Stream streamTakenBy(const std::filesystem::path &node,
                     const std::function<void(const std::atomic<bool> &)> &take)
{
    Stream stream;
    std::atomic<bool> isOver = false;
    std::exception_ptr failure;
    const double before = threadSeconds();
    {
        const std::jthread sender([&] {
            try {
                send(node, stream);
            } catch (...) {
                failure = std::current_exception();
            }
            isOver = true;
        });
        take(isOver);
    }
    stream.cost = 100 * (threadSeconds() - before) / streamLength.count();
    if (failure) {
        std::rethrow_exception(failure);
    }
    return stream;
}

// Runs the main loop, and so takes what comes, also what is still on its way in the end.
void runLoop(const std::atomic<bool> &isOver)
{
    QEventLoop loop;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, &loop, [&] {
        if (isOver) {
            clock.stop();
            QTimer::singleShot(moment, &loop, &QEventLoop::quit);
        }
    });
    clock.start(moment);
    loop.exec();
}

// What the kernel and a busy machine do to a stream alone: the same pauses and the same reads.
Stream streamOfReads(const std::filesystem::path &node)
{
    const platform::FileDescriptor file(open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return streamTakenBy(node, [&file](const std::atomic<bool> &isOver) {
        std::array<std::byte, Backend::reportBufferSize> report;
        while (!isOver) {
            std::this_thread::sleep_for(HidrawDevice::restTime);
            for (int count = 0; count < HidrawDevice::mostReportsAtOnce &&
                                read(file.get(), report.data(), report.size()) > 0;
                 ++count) {
            }
        }
    });
}

} // namespace

std::vector<Row> sensorStreamRows()
{
    const SensorMachine machine;
    const auto node = machine.addHidraw(0, accelerometer);
    Backend backend;
    require(backend.open(), "the accelerometer does not open");
    const auto stream = streamTakenBy(node, runLoop);
    require(backend.readLockedCopy().x * Backend::rawToG == stream.lastEighth,
            "not every report was taken and decoded");
    backend.close();
    const auto bare = streamOfReads(node);
    return {limitRow("CPU time of 4,000 reports a second, beside the reads alone", stream.cost, 1, "%",
                     figure(bare.cost, "%")),
            limitRow("reports of these that were lost, beside the same", stream.lostPart(), 0, "%",
                     figure(bare.lostPart(), "%"))};
}

} // namespace benchmarks

#include "Benchmarks/ProcessFigures.h"
#include "Benchmarks/Sections.h"
#include "Benchmarks/Statistics.h"
#include "SharedCore/EventTapManager/EventTapManager.h"
#include "Tests/Support/XClient.h"

#include <linux/input-event-codes.h>
#include <unistd.h>
#include <xcb/xtest.h>

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <iostream>
#include <optional>
#include <sstream>
#include <thread>

namespace benchmarks {

namespace {

using Clock = std::chrono::steady_clock;
using sharedcore::EventTapManager;

constexpr std::size_t presses = 10'000;
constexpr std::chrono::milliseconds distance(1);
constexpr std::chrono::seconds mostTime(30);
constexpr std::chrono::seconds silenceTime(5);
constexpr double mostMilliseconds = 2;

// The manager says on the standard output that it has started; the table is there alone.
class QuietOutput
{
public:
    QuietOutput()
        : output_(std::cout.rdbuf(said_.rdbuf()))
    {}
    QuietOutput(const QuietOutput &) = delete;
    QuietOutput &operator=(const QuietOutput &) = delete;
    ~QuietOutput() { std::cout.rdbuf(output_); }

private:
    std::ostringstream said_;
    std::streambuf *output_;
};

// Another client of the display; the times are those before each press.
std::vector<Clock::time_point> type()
{
    const testsupport::XClient x(qEnvironmentVariable("DISPLAY"));
    const auto start = Clock::now() + distance;
    std::vector<Clock::time_point> times;
    times.reserve(presses);
    for (std::size_t i = 0; i < presses; ++i) {
        const auto key = static_cast<std::uint8_t>(KEY_Q + i % 10 + 8);
        std::this_thread::sleep_until(start + i * distance);
        times.push_back(Clock::now());
        xcb_test_fake_input(x.get(), XCB_KEY_PRESS, key, XCB_CURRENT_TIME, x.root(), 0, 0, 0);
        xcb_test_fake_input(x.get(), XCB_KEY_RELEASE, key, XCB_CURRENT_TIME, x.root(), 0, 0, 0);
        xcb_flush(x.get());
    }
    x.sync();
    return times;
}

std::vector<Row> keyRows()
{
    std::vector<Clock::time_point> told;
    told.reserve(presses);
    QEventLoop loop;
    EventTapManager manager;
    const QuietOutput quiet;
    const bool isStarted = manager.startKeyTracking([&](const auto &...) {
        told.push_back(Clock::now());
        if (told.size() == presses) {
            loop.quit();
        }
    });
    if (!isStarted) {
        throw NotMeasured("no leave to listen");
    }
    QTimer::singleShot(mostTime, &loop, &QEventLoop::quit);
    std::vector<Clock::time_point> posted;
    std::jthread hands([&posted] { posted = type(); });
    loop.exec();
    hands.join();

    std::vector<double> delays{0};
    for (std::size_t i = 0; i < told.size(); ++i) {
        delays.push_back(std::chrono::duration<double, std::milli>(told[i] - posted[i]).count());
    }
    return {limitRow("keys that were not told, of 10,000 at 1,000 a second",
                     static_cast<double>(presses - told.size()), 0, ""),
            limitRow("a key from the post to the callback: 99th percentile", quantile(delays, 0.99),
                     mostMilliseconds, "ms", figure(median(delays), "ms") + " median")};
}

// On a thread that has nothing else to do.
std::vector<Row> silenceRows()
{
    QThread thread;
    QObject place;
    place.moveToThread(&thread);
    thread.start();
    const auto onThread = [&place](const auto &work) {
        QMetaObject::invokeMethod(&place, work, Qt::BlockingQueuedConnection);
    };
    std::optional<EventTapManager> manager;
    pid_t id = 0;
    bool isStarted = false;
    onThread([&] {
        const QuietOutput quiet;
        id = gettid();
        manager.emplace();
        isStarted = manager->startMouseTracking([](const auto &...) {}) &&
                    manager->startKeyTracking([](const auto &...) {});
    });
    std::this_thread::sleep_for(std::chrono::seconds(1)); // what the start has brought
    const auto before = wakeUpsOf(getpid());
    std::this_thread::sleep_for(silenceTime);
    const auto after = wakeUpsOf(getpid());
    onThread([&manager] { manager.reset(); });
    thread.quit();
    thread.wait();
    if (!isStarted) {
        throw NotMeasured("no leave to listen");
    }
    return {limitRow("wake-ups of 5 s of listening to silence",
                     static_cast<double>(after.at(id) - before.at(id)), 0, "")};
}

} // namespace

std::vector<Row> listeningRows()
{
    auto rows = keyRows();
    const auto silence = silenceRows();
    rows.insert(rows.end(), silence.begin(), silence.end());
    return rows;
}

} // namespace benchmarks

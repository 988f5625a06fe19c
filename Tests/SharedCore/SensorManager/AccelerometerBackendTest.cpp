#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"

#include "Tests/SharedCore/SensorManager/SensorTest.h"
#include "Tests/Support/AllocationCount.h"

namespace sharedcore {

namespace {

using Backend = AppleSPUHIDAccelerometerBackend;
using Data = MotionSensor::Data;
using Pair = std::pair<std::int32_t, std::int32_t>;
using platform::RegistryValue;
using testing::ElementsAre;

std::vector<std::byte> reportOfX(std::initializer_list<int> x)
{
    auto report = bytes({1, 2, 3, 4, 5, 6});
    const auto value = bytes(x);
    report.insert(report.end(), value.begin(), value.end());
    report.resize(Backend::imuReportLength);
    return report;
}

const auto oneG = reportOfX({0x00, 0x00, 0x01, 0x00});

class AccelerometerBackendTest : public SensorTest
{
protected:
    fakes::FakeService &addDevice(const RegistryValue &page = std::int64_t{0xFF00},
                                  const RegistryValue &usage = std::int64_t{3})
    {
        return registry_.add({.className = "AppleSPUHIDDevice",
                              .properties = {{"PrimaryUsagePage", page}, {"PrimaryUsage", usage}},
                              .isHid = true});
    }

    [[nodiscard]] std::optional<Pair> pairOf(const fakes::FakeService &service)
    {
        registry_.add(service);
        const platform::ServiceHolder holder(registry_, registry_.firstService(service.className));
        return Backend::primaryUsagePair(holder.get());
    }

    static void send(fakes::FakeService &device, const std::vector<std::byte> &report, int times = 1)
    {
        for (int count = 0; count < times; ++count) {
            EXPECT_TRUE(device.hid.send(report));
        }
    }

    Backend backend_;
};

} // namespace

TEST_F(AccelerometerBackendTest, DecodesTheAxesOfAReport)
{
    auto report = reportOfX({0x00, 0x00, 0x01, 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80});
    report[18] = std::byte(0xEE);
    EXPECT_EQ(Backend::decoded(std::span(report).first<22>()), (Data{1.0, -1 / 65536.0, -32768}));
    const auto smallest = reportOfX({0xFF, 0xFF, 0xFF, 0xFF});
    EXPECT_EQ(Backend::decoded(std::span(smallest).first<22>()).x, -1 / 65536.0);
}

TEST_F(AccelerometerBackendTest, DecodesAtAnyAddress)
{
    for (std::size_t offset = 0; offset < 8; ++offset) {
        std::vector<std::byte> moved(offset);
        moved.insert(moved.end(), oneG.begin(), oneG.end());
        EXPECT_EQ(Backend::decoded(std::span(moved).subspan(offset).first<22>()), (Data{1, 0, 0}));
    }
}

TEST_F(AccelerometerBackendTest, AllocatesNothingForAReport)
{
    auto &device = addDevice();
    ASSERT_TRUE(backend_.open());
    const auto before = testsupport::allocationCount();
    send(device, oneG, 800);
    const auto after = testsupport::allocationCount();
    EXPECT_EQ(after, before);
    EXPECT_EQ(backend_.readLockedCopy(), (Data{1, 0, 0}));
    backend_.close();
}

TEST_F(AccelerometerBackendTest, KeepsEachEighthReport)
{
    auto &device = addDevice();
    ASSERT_TRUE(backend_.open());
    std::vector<double> seen;
    for (int number = 1; number <= 24; ++number) {
        send(device, reportOfX({0, 0, number, 0}));
        if (seen.empty() || seen.back() != backend_.readLockedCopy().x) {
            seen.push_back(backend_.readLockedCopy().x);
        }
    }
    EXPECT_THAT(seen, ElementsAre(0, 8, 16, 24));
    backend_.close();
}

TEST_F(AccelerometerBackendTest, DoesNotCountReportsOfAnotherLength)
{
    auto &device = addDevice();
    ASSERT_TRUE(backend_.open());
    send(device, oneG, 7);
    for (const std::size_t length : {0U, 21U, 23U, 4096U, 9000U}) {
        auto report = oneG;
        report.resize(length);
        send(device, report, 8);
    }
    EXPECT_EQ(backend_.readLockedCopy(), Data());
    send(device, oneG);
    EXPECT_EQ(backend_.readLockedCopy(), (Data{1, 0, 0}));
    backend_.close();
}

TEST_F(AccelerometerBackendTest, DoesNotCountReportsThatFailed)
{
    auto &device = addDevice();
    ASSERT_TRUE(backend_.open());
    send(device, oneG, 7);
    EXPECT_TRUE(device.hid.send(oneG, -1));
    EXPECT_EQ(backend_.readLockedCopy(), Data());
    send(device, oneG);
    EXPECT_EQ(backend_.readLockedCopy(), (Data{1, 0, 0}));
    backend_.close();
}

TEST_F(AccelerometerBackendTest, TakesNoReportWithoutABackend)
{
    Backend::inputReport(nullptr, {.bytes = oneG});
    for (int count = 0; count < 8; ++count) {
        Backend::inputReport(&backend_, {.bytes = oneG});
    }
    EXPECT_EQ(backend_.readLockedCopy(), (Data{1, 0, 0}));
}

TEST_F(AccelerometerBackendTest, WakesEveryDriver)
{
    auto &first = registry_.add({.className = "AppleSPUHIDDriver", .setResult = -1});
    auto &second = registry_.add({.className = "AppleSPUHIDDriver"});
    EXPECT_FALSE(backend_.open());
    for (const auto *driver : {&first, &second}) {
        EXPECT_THAT(driver->set,
                    ElementsAre(std::pair("SensorPropertyReportingState", 1),
                                std::pair("SensorPropertyPowerState", 1), std::pair("ReportInterval", 1000)));
    }
    EXPECT_THAT(registry_.asked, ElementsAre("AppleSPUHIDDriver", "AppleSPUHIDDevice"));
}

TEST_F(AccelerometerBackendTest, ReadsThePrimaryUsage)
{
    EXPECT_EQ(pairOf({.className = "both",
                      .properties = {{"PrimaryUsagePage", std::int64_t{1}}, {"PrimaryUsage", 6.0}}}),
              Pair(1, 6));
    EXPECT_EQ(pairOf({.className = "no usage", .properties = {{"PrimaryUsagePage", std::int64_t{1}}}}),
              std::nullopt);
    EXPECT_EQ(pairOf({.className = "no page", .properties = {{"PrimaryUsage", std::int64_t{6}}}}),
              std::nullopt);
    EXPECT_EQ(
        pairOf({.className = "a text",
                .properties = {{"PrimaryUsagePage", std::int64_t{1}}, {"PrimaryUsage", std::string("6")}}}),
        std::nullopt);
    EXPECT_EQ(pairOf({.className = "a Boolean",
                      .properties = {{"PrimaryUsagePage", true}, {"PrimaryUsage", std::int64_t{6}}}}),
              std::nullopt);
    EXPECT_EQ(
        pairOf({.className = "too large",
                .properties = {{"PrimaryUsagePage", std::int64_t{0x1'0000'0001}}, {"PrimaryUsage", 1e300}}}),
        Pair(1, INT32_MAX));
}

TEST_F(AccelerometerBackendTest, OpensTheFirstThatMatchesAndOpens)
{
    auto &keyboard = addDevice(std::int64_t{1}, std::int64_t{6});
    auto &otherUsage = addDevice(std::int64_t{0xFF00}, std::int64_t{9});
    auto &noDevice = addDevice();
    noDevice.isHid = false;
    auto &refusing = addDevice();
    refusing.hid.openResult = -3;
    auto &right = addDevice();
    auto &late = addDevice();
    EXPECT_TRUE(backend_.open());
    EXPECT_TRUE(keyboard.hid.calls.empty());
    EXPECT_TRUE(otherUsage.hid.calls.empty());
    EXPECT_THAT(refusing.hid.calls, ElementsAre("open"));
    EXPECT_FALSE(refusing.hid.exists);
    EXPECT_THAT(right.hid.calls, ElementsAre("open", "register", "schedule"));
    EXPECT_TRUE(late.hid.calls.empty());
    EXPECT_EQ(right.hid.buffer.size(), 4096U);
    EXPECT_EQ(registry_.heldServices(), 0U);
    backend_.close();
}

TEST_F(AccelerometerBackendTest, ClosesInOrderAndKeepsTheLastSample)
{
    auto &device = addDevice();
    ASSERT_TRUE(backend_.open());
    send(device, oneG, 8);
    device.hid.calls.clear();
    backend_.close();
    EXPECT_THAT(device.hid.calls, ElementsAre("unregister", "unschedule", "close"));
    EXPECT_FALSE(device.hid.exists);
    EXPECT_EQ(backend_.readLockedCopy(), (Data{1, 0, 0}));
    backend_.close();
    EXPECT_EQ(device.hid.calls.size(), 3U);
}

TEST_F(AccelerometerBackendTest, LetsTheDeviceGoWithoutClosingIt)
{
    auto &device = addDevice();
    {
        Backend backend;
        ASSERT_TRUE(backend.open());
    }
    EXPECT_THAT(device.hid.calls, ElementsAre("open", "register", "schedule"));
    EXPECT_FALSE(device.hid.send(oneG));
}

} // namespace sharedcore

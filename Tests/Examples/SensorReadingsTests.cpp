#include "Examples/Gallery/Sensors/SensorReadings.h"

#include "Platform/HardwareRegistry.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/Eventually.h"

#include <gmock/gmock.h>

#include <semaphore>
#include <thread>

namespace gallery {

namespace {

using platform::RegistryConnection;
using platform::RegistryResult;
using platform::RegistryService;
using testsupport::eventually;
using namespace std::chrono_literals;

constexpr RegistryService lightController = 1;
constexpr RegistryService motionDriver = 2;
constexpr RegistryService reportingDevice = 3;

// A machine with the sensors that a test wants, at first a light sensor. Its drivers answer when the test
// lets them.
class SlowRegistry final : public platform::HardwareRegistry
{
public:
    std::vector<RegistryService> services(std::string_view className) override
    {
        if (className == "AppleLMUController") {
            return hasLight ? std::vector{lightController} : std::vector<RegistryService>();
        }
        if (className == "IOHIDMotionSensor") {
            return hasMotion ? std::vector{motionDriver} : std::vector<RegistryService>();
        }
        return hasReports && className == "AppleSPUHIDDevice" ? std::vector{reportingDevice}
                                                              : std::vector<RegistryService>();
    }
    RegistryService firstService(std::string_view className) override
    {
        const auto found = services(className);
        return found.empty() ? 0 : found.front();
    }
    void release(RegistryService /*service*/) override {}
    std::optional<platform::RegistryValue> property(RegistryService service, std::string_view key) override
    {
        if (service != reportingDevice) {
            return std::nullopt;
        }
        return key == "PrimaryUsagePage" ? 0xFF00 : 3;
    }
    RegistryResult setProperty(RegistryService /*service*/, std::string_view /*key*/,
                               std::int32_t /*value*/) override
    {
        return platform::registrySuccess;
    }
    RegistryResult openUserClient(RegistryService service, std::uint32_t /*type*/,
                                  RegistryConnection &connection) override
    {
        if (service == motionDriver) {
            waitForAnswer();
        }
        connection = service;
        return platform::registrySuccess;
    }
    void closeUserClient(RegistryConnection /*connection*/) override {}
    RegistryResult callScalarMethod(RegistryConnection /*connection*/, std::uint32_t /*selector*/,
                                    std::span<const std::uint64_t> /*input*/,
                                    std::span<std::uint64_t> output) override
    {
        waitForAnswer();
        std::ranges::fill(output, 25'000'000U);
        return platform::registrySuccess;
    }
    RegistryResult callStructMethod(RegistryConnection /*connection*/, std::uint32_t /*selector*/,
                                    std::span<const std::byte> /*input*/,
                                    std::span<std::byte> output) override
    {
        std::ranges::fill(output, std::byte(0));
        output[1] = static_cast<std::byte>(acceleration.load()); // the high byte of the first axis
        return platform::registrySuccess;
    }
    std::unique_ptr<platform::HidDevice> createHidDevice(RegistryService /*service*/) override
    {
        threadOfReports = std::this_thread::get_id();
        return nullptr;
    }
    std::string modelName() override { return {}; }

    std::atomic<bool> hasLight = true;
    std::atomic<bool> hasMotion = false;
    std::atomic<bool> hasReports = false;
    std::atomic<int> acceleration = 0; // in g
    std::atomic<std::thread::id> threadOfReports;
    std::atomic<int> asked = 0;
    std::counting_semaphore<> answers{0};

private:
    void waitForAnswer()
    {
        ++asked;
        answers.acquire();
    }

    platform::HardwareRegistryInstallation installation_{*this};
};

class SensorReadingsTest : public testing::Test
{
protected:
    ~SensorReadingsTest() override { registry_.answers.release(1000); }

    [[nodiscard]] qsizetype samples() { return readings_.lidHistory()->samples().size(); }
    [[nodiscard]] qsizetype motions() { return readings_.motionHistory()->samples().size(); }

    // Lets the clock go on until something is so.
    template <typename Condition> [[nodiscard]] bool comesTrue(const Condition &condition)
    {
        return eventually([&] {
            platform_.scheduler().advance(0.1s);
            return condition();
        });
    }

    fakes::FakePlatform platform_;
    SlowRegistry registry_;
    SensorReadings readings_;
};

} // namespace

TEST_F(SensorReadingsTest, ComeTenTimesASecondWhileTheyRun)
{
    registry_.answers.release(1000);
    readings_.setRunning(true);
    for (qsizetype count = 1; count <= 5; ++count) {
        ASSERT_TRUE(eventually([&] { return samples() == count; }));
        platform_.scheduler().advance(0.1s);
    }
    EXPECT_EQ(readings_.light(), 0.5);
    EXPECT_EQ(readings_.lid(), 67.5);
    EXPECT_TRUE(readings_.hasLight());
    EXPECT_FALSE(readings_.hasMotion());
    EXPECT_FALSE(readings_.isLidMeasured());
    readings_.setRunning(false);
    EXPECT_EQ(platform_.scheduler().runningTimers(), 0U);
}

TEST_F(SensorReadingsTest, KeepTheMainThreadFreeWhileASensorHangs)
{
    readings_.setRunning(true);
    ASSERT_TRUE(eventually([this] { return registry_.asked == 1; }));
    platform_.scheduler().advance(5s); // which does not wait
    testsupport::letPass(20ms);
    EXPECT_EQ(registry_.asked, 1);
    EXPECT_EQ(samples(), 0);
    registry_.answers.release(1000);
    ASSERT_TRUE(eventually([this] { return samples() == 1; }));
    EXPECT_EQ(registry_.asked, 2); // the light, and the lid that is guessed from it
    platform_.scheduler().advance(0.15s);
    EXPECT_TRUE(eventually([this] { return samples() == 2; }));
}

TEST_F(SensorReadingsTest, TakeNoSampleThatComesAfterTheEnd)
{
    readings_.setRunning(true);
    ASSERT_TRUE(eventually([this] { return registry_.asked == 1; }));
    readings_.setRunning(false);
    EXPECT_FALSE(readings_.isRunning());
    registry_.answers.release(2);
    ASSERT_TRUE(eventually([this] { return registry_.asked == 2; }));
    testsupport::letPass(20ms);
    EXPECT_EQ(samples(), 0);
    registry_.answers.release(1000);
    readings_.setRunning(true);
    EXPECT_TRUE(eventually([this] {
        platform_.scheduler().advance(0.1s);
        return samples() > 0;
    }));
}

TEST_F(SensorReadingsTest, KeepTheMainThreadFreeWhileAnAccelerometerHangs)
{
    registry_.hasLight = false;
    registry_.hasMotion = true;
    readings_.setRunning(true);
    ASSERT_TRUE(eventually([this] { return registry_.asked == 1; }));
    EXPECT_EQ(samples(), 0);
    registry_.acceleration = 1;
    registry_.answers.release();
    EXPECT_TRUE(eventually([this] { return motions() == 1; }));
    EXPECT_TRUE(readings_.hasMotion());
    EXPECT_EQ(readings_.motion(), QVector3D(1, 0, 0));
}

TEST_F(SensorReadingsTest, OpenWhatSendsReportsOnTheMainThread)
{
    registry_.answers.release(1000);
    registry_.hasReports = true;
    readings_.setRunning(true);
    ASSERT_TRUE(eventually([this] { return samples() == 1; }));
    EXPECT_EQ(registry_.threadOfReports, std::this_thread::get_id());
    EXPECT_FALSE(readings_.hasMotion());
}

TEST_F(SensorReadingsTest, FollowALightSensorThatGoesAndComesBack)
{
    registry_.answers.release(1000);
    readings_.setRunning(true);
    ASSERT_TRUE(comesTrue([this] { return samples() > 0; }));
    EXPECT_TRUE(readings_.hasLight());
    registry_.hasLight = false;
    ASSERT_TRUE(comesTrue([this] { return !readings_.hasLight(); }));
    EXPECT_EQ(readings_.lid(), 90);
    const auto before = readings_.lightHistory()->samples().size();
    const auto lids = samples();
    testing::internal::CaptureStdout();
    ASSERT_TRUE(comesTrue([&] { return samples() > lids + 2; }));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(readings_.lightHistory()->samples().size(), before);
    registry_.hasLight = true;
    EXPECT_TRUE(comesTrue([this] { return readings_.hasLight() && readings_.lid() == 67.5; }));
}

TEST_F(SensorReadingsTest, PlotNoAccelerationThatWasNotRead)
{
    registry_.answers.release(1000);
    registry_.hasMotion = true;
    readings_.setRunning(true);
    ASSERT_TRUE(comesTrue([this] { return samples() > 1; }));
    EXPECT_TRUE(readings_.hasMotion());
    EXPECT_FALSE(readings_.isMotionRead());
    EXPECT_EQ(motions(), 0);
    registry_.acceleration = 1;
    EXPECT_TRUE(comesTrue([this] { return readings_.isMotionRead() && motions() > 0; }));
    registry_.acceleration = 0;
    EXPECT_TRUE(comesTrue([this] { return !readings_.isMotionRead(); }));
}

} // namespace gallery

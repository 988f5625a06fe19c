#include "Examples/Gallery/Sensors/SensorReadings.h"

#include "Platform/HardwareRegistry.h"
#include "Tests/Fakes/FakePlatform.h"
#include "Tests/Support/Eventually.h"

#include <gmock/gmock.h>

#include <semaphore>

namespace gallery {

namespace {

using platform::RegistryConnection;
using platform::RegistryResult;
using platform::RegistryService;
using testsupport::eventually;
using namespace std::chrono_literals;

// A machine with nothing but a light sensor, which answers when the test lets it.
class SlowRegistry final : public platform::HardwareRegistry
{
public:
    std::vector<RegistryService> services(std::string_view className) override
    {
        return className == "AppleLMUController" ? std::vector<RegistryService>{1}
                                                 : std::vector<RegistryService>();
    }
    RegistryService firstService(std::string_view className) override
    {
        const auto found = services(className);
        return found.empty() ? 0 : found.front();
    }
    void release(RegistryService /*service*/) override {}
    std::optional<platform::RegistryValue> property(RegistryService /*service*/,
                                                    std::string_view /*key*/) override
    {
        return std::nullopt;
    }
    RegistryResult setProperty(RegistryService /*service*/, std::string_view /*key*/,
                               std::int32_t /*value*/) override
    {
        return platform::registrySuccess;
    }
    RegistryResult openUserClient(RegistryService /*service*/, std::uint32_t /*type*/,
                                  RegistryConnection &connection) override
    {
        connection = 1;
        return platform::registrySuccess;
    }
    void closeUserClient(RegistryConnection /*connection*/) override {}
    RegistryResult callScalarMethod(RegistryConnection /*connection*/, std::uint32_t /*selector*/,
                                    std::span<const std::uint64_t> /*input*/,
                                    std::span<std::uint64_t> output) override
    {
        ++asked;
        answers.acquire();
        std::ranges::fill(output, 25'000'000U);
        return platform::registrySuccess;
    }
    RegistryResult callStructMethod(RegistryConnection /*connection*/, std::uint32_t /*selector*/,
                                    std::span<const std::byte> /*input*/,
                                    std::span<std::byte> /*output*/) override
    {
        return platform::registrySuccess;
    }
    std::unique_ptr<platform::HidDevice> createHidDevice(RegistryService /*service*/) override
    {
        return nullptr;
    }
    std::string modelName() override { return {}; }

    std::atomic<int> asked = 0;
    std::counting_semaphore<> answers{0};

private:
    platform::HardwareRegistryInstallation installation_{*this};
};

class SensorReadingsTest : public testing::Test
{
protected:
    ~SensorReadingsTest() override { registry_.answers.release(1000); }

    [[nodiscard]] qsizetype samples() { return readings_.lidHistory()->samples().size(); }

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

} // namespace gallery

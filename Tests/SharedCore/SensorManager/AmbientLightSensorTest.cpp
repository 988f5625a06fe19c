#include "SharedCore/SensorManager/AmbientLightSensor.h"

#include "Tests/SharedCore/SensorManager/SensorTest.h"

namespace sharedcore {

namespace {

class AmbientLightSensorTest : public SensorTest
{
protected:
    fakes::FakeService &addController(std::uint64_t first, std::uint64_t second)
    {
        return registry_.add({.className = "AppleLMUController", .scalars = {first, second}});
    }

    std::uint64_t rawOf(std::uint64_t first, std::uint64_t second)
    {
        addController(first, second);
        AmbientLightSensor sensor;
        EXPECT_TRUE(sensor.open());
        return sensor.readRaw();
    }
};

using AmbientLightSensorDeathTest = AmbientLightSensorTest;

} // namespace

TEST_F(AmbientLightSensorTest, ReadsTheMeanOfTheTwoChannels)
{
    addController(40'000'000, 60'000'000);
    AmbientLightSensor sensor;
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(sensor.open()); }), "");
    EXPECT_EQ(sensor.readRaw(), 50'000'000U);
    EXPECT_EQ(sensor.readNormalized(), 1.0);
}

TEST_F(AmbientLightSensorTest, RoundsTheMeanDown)
{
    EXPECT_EQ(rawOf(0, 1), 0U);
}

TEST_F(AmbientLightSensorTest, AddsUpToTheEndOf64Bits)
{
    EXPECT_EQ(rawOf(UINT64_MAX - 1, 1), UINT64_MAX / 2);
}

TEST_F(AmbientLightSensorDeathTest, StopsTheProcessBeyondIt)
{
    addController(UINT64_MAX, 1);
    EXPECT_DEATH(
        {
            AmbientLightSensor sensor;
            sensor.open();
            static_cast<void>(sensor.readRaw());
        },
        "Fatal error: arithmetic overflow");
}

TEST_F(AmbientLightSensorTest, NormalisesToAtMostOne)
{
    auto &controller = addController(0, 0);
    AmbientLightSensor sensor;
    ASSERT_TRUE(sensor.open());
    EXPECT_EQ(sensor.readNormalized(), 0.0);
    controller.scalars = {12'500'000, 12'500'000};
    EXPECT_EQ(sensor.readNormalized(), 0.25);
    controller.scalars = {67'092'480, 67'092'480};
    EXPECT_EQ(sensor.readNormalized(), 1.0);
}

TEST_F(AmbientLightSensorTest, CallsTheDriverAsItExpects)
{
    EXPECT_EQ(rawOf(2, 4), 3U);
    EXPECT_THAT(registry_.clientTypes, testing::ElementsAre(0U));
    EXPECT_THAT(registry_.calls, testing::ElementsAre(fakes::FakeHardwareRegistry::Call{0, 0, 2, true}));
}

TEST_F(AmbientLightSensorTest, SaysThatThereIsNoControllerEachTime)
{
    AmbientLightSensor sensor;
    EXPECT_EQ(printedBy([&] {
                  EXPECT_FALSE(sensor.open());
                  EXPECT_FALSE(sensor.open());
              }),
              "⚠️ AmbientLightSensor: AppleLMUController not found\n"
              "⚠️ AmbientLightSensor: AppleLMUController not found\n");
    EXPECT_EQ(sensor.readRaw(), 0U);
    EXPECT_EQ(sensor.readNormalized(), 0.0);
}

TEST_F(AmbientLightSensorTest, IsNotOpenWhereTheDriverRefuses)
{
    addController(2, 4).openResult = -5;
    AmbientLightSensor sensor;
    EXPECT_EQ(printedBy([&] { EXPECT_FALSE(sensor.open()); }), "");
    EXPECT_EQ(sensor.readRaw(), 0U);
    EXPECT_TRUE(registry_.calls.empty());
}

TEST_F(AmbientLightSensorTest, AsksTheFirstControllerOnly)
{
    addController(2, 4).openResult = -5;
    addController(6, 8);
    AmbientLightSensor sensor;
    EXPECT_FALSE(sensor.open());
    EXPECT_EQ(registry_.clientTypes.size(), 1U);
}

TEST_F(AmbientLightSensorTest, ReadsZeroWhereTheCallFails)
{
    addController(2, 4).callResult = -5;
    AmbientLightSensor sensor;
    ASSERT_TRUE(sensor.open());
    EXPECT_EQ(sensor.readRaw(), 0U);
}

TEST_F(AmbientLightSensorTest, IsClosedOnce)
{
    addController(2, 4);
    AmbientLightSensor sensor;
    sensor.close();
    ASSERT_TRUE(sensor.open());
    ASSERT_EQ(registry_.openConnections(), 1U);
    sensor.close();
    EXPECT_EQ(registry_.openConnections(), 0U);
    EXPECT_EQ(sensor.readRaw(), 0U);
    EXPECT_EQ(sensor.readNormalized(), 0.0);
    EXPECT_TRUE(registry_.calls.empty()); // a closed sensor asks nobody
    sensor.close();
}

TEST_F(AmbientLightSensorTest, IsClosedWithItsObjectAndBeforeItIsOpenedAnew)
{
    addController(2, 4);
    {
        AmbientLightSensor sensor;
        ASSERT_TRUE(sensor.open());
        ASSERT_TRUE(sensor.open());
        EXPECT_EQ(registry_.openConnections(), 1U);
        EXPECT_EQ(sensor.readRaw(), 3U);
    }
    EXPECT_EQ(registry_.openConnections(), 0U);
}

} // namespace sharedcore

#include "SharedCore/SensorManager/LidAngleSensor.h"

#include "Tests/SharedCore/SensorManager/SensorTest.h"

namespace sharedcore {

namespace {

class LidAngleSensorTest : public SensorTest
{
protected:
    void addDisplay(const platform::RegistryValue &angle)
    {
        registry_.add({.className = "AppleBacklightDisplay", .properties = {{"lid-angle", angle}}});
    }

    void addLight(std::uint64_t raw)
    {
        registry_.add({.className = "AppleLMUController", .scalars = {raw, raw}});
    }

    [[nodiscard]] bool isMacBook(const std::string &model)
    {
        registry_.model = model;
        return LidAngleSensor::isMacBook();
    }

    LidAngleSensor sensor_;
};

} // namespace

TEST_F(LidAngleSensorTest, ReadsWhatTheDisplayTells)
{
    addLight(0);
    addDisplay(112.5);
    EXPECT_EQ(LidAngleSensor::readDirect(), 112.5);
    EXPECT_EQ(sensor_.read(), 112.5);
    EXPECT_THAT(registry_.asked, testing::Not(testing::Contains("AppleLMUController")));
}

TEST_F(LidAngleSensorTest, TakesAWholeNumberToo)
{
    addDisplay(std::int64_t{97});
    EXPECT_EQ(sensor_.read(), 97.0);
}

TEST_F(LidAngleSensorTest, TakesZeroForAnAngle)
{
    addLight(25'000'000);
    addDisplay(0.0);
    EXPECT_EQ(sensor_.read(), 0.0);
}

TEST_F(LidAngleSensorTest, LooksAtTheFirstDisplayOnly)
{
    registry_.add({.className = "AppleBacklightDisplay"});
    addDisplay(97.0);
    EXPECT_EQ(LidAngleSensor::readDirect(), std::nullopt);
}

TEST_F(LidAngleSensorTest, TellsNothingWithoutANumber)
{
    EXPECT_EQ(printedBy([] { EXPECT_EQ(LidAngleSensor::readDirect(), std::nullopt); }), "");
    addDisplay(std::string("97"));
    EXPECT_EQ(LidAngleSensor::readDirect(), std::nullopt);
}

TEST_F(LidAngleSensorTest, TellsNothingOfABoolean)
{
    addDisplay(true);
    EXPECT_EQ(LidAngleSensor::readDirect(), std::nullopt);
}

TEST_F(LidAngleSensorTest, EstimatesFromTheLight)
{
    addLight(25'000'000);
    EXPECT_EQ(printedBy([this] { EXPECT_EQ(sensor_.read(), 67.5); }), "");
    EXPECT_EQ(registry_.openConnections(), 0U);
}

TEST_F(LidAngleSensorTest, EstimatesFromDarknessToFullBrightness)
{
    addLight(0);
    EXPECT_EQ(sensor_.readEstimated(), 0.0);
}

TEST_F(LidAngleSensorTest, EstimatesNoMoreThanTheWidestAngle)
{
    addLight(1'000'000'000);
    EXPECT_EQ(sensor_.readEstimated(), 135.0);
}

TEST_F(LidAngleSensorTest, OpensTheLightSensorForEachEstimate)
{
    addLight(5);
    static_cast<void>(sensor_.readEstimated());
    static_cast<void>(sensor_.readEstimated());
    EXPECT_EQ(registry_.clientTypes.size(), 2U);
}

TEST_F(LidAngleSensorTest, TakesARightAngleWithoutAnySensor)
{
    EXPECT_EQ(printedBy([this] { EXPECT_EQ(sensor_.read(), 90.0); }),
              "⚠️ AmbientLightSensor: AppleLMUController not found\n");
}

TEST_F(LidAngleSensorTest, TakesARightAngleWhereTheLightSensorDoesNotOpen)
{
    registry_.add({.className = "AppleLMUController", .openResult = 1});
    EXPECT_EQ(sensor_.read(), 90.0);
}

TEST_F(LidAngleSensorTest, KnowsAPortableByItsName)
{
    EXPECT_TRUE(isMacBook("MacBookPro18,3"));
    EXPECT_TRUE(isMacBook("a MacBook among others"));
    EXPECT_FALSE(isMacBook("Macmini9,1"));
    EXPECT_FALSE(isMacBook("macbookpro18,3"));
    EXPECT_FALSE(isMacBook(""));
}

} // namespace sharedcore

#include "SharedCore/SensorManager/MotionReply.h"
#include "Tests/Platform/Sysfs/RegistryTest.h"

namespace platform {

namespace {

using Data = sharedcore::MotionSensor::Data;
using Reply = std::array<std::byte, 40>;

constexpr auto iio = "IOHIDMotionSensor";
constexpr auto diskGuard = "AppleEmbeddedMotionSensor";
constexpr auto controller = "SMCMotionSensor";

constexpr auto applesmcFile = "devices/platform/applesmc.768/position";
constexpr auto lis3lv02dFile = "devices/platform/lis3lv02d/position";
constexpr auto hdapsFile = "devices/platform/hdaps/position";
constexpr auto hdapsRestFile = "devices/platform/hdaps/calibrate";

class MotionServicesTest : public RegistryTest
{
protected:
    // All zero where the call fails, which `isSuccessful_` tells.
    [[nodiscard]] Data read(RegistryConnection connection)
    {
        Reply reply{};
        isSuccessful_ = registry_.callStructMethod(connection, 5, Reply(), reply) == registrySuccess;
        return sharedcore::MotionReply::decoded(reply);
    }

    [[nodiscard]] Data read(std::string_view className) { return read(connectionTo(className)); }

    [[nodiscard]] Data readIio(std::map<std::string, std::string> attributes)
    {
        for (const auto *const channel : {"in_accel_x_raw", "in_accel_y_raw", "in_accel_z_raw"}) {
            attributes.emplace(channel, "0");
        }
        machine_.addIio(0, attributes);
        const auto data = read(iio);
        machine_.remove("sys/bus");
        return data;
    }

    bool isSuccessful_ = false;
};

} // namespace

TEST_F(MotionServicesTest, ReadsTheSystemController)
{
    machine_.write(applesmcFile, "(256,-128,1)");
    EXPECT_EQ(read(controller), (Data{1, -0.5, 1 / 256.0}));
    EXPECT_EQ(countOf(iio) + countOf(diskGuard), 0U);
}

TEST_F(MotionServicesTest, ReadsADiskGuardInThousandths)
{
    machine_.write(lis3lv02dFile, "(-500,1000,0)");
    EXPECT_EQ(read(diskGuard), (Data{-0.5, 1, 0}));
}

TEST_F(MotionServicesTest, ReadsADiskGuardFromItsRest)
{
    machine_.write(hdapsFile, "(680,420)");
    machine_.write(hdapsRestFile, "(500,510)");
    EXPECT_EQ(read(diskGuard), (Data{1, -0.5, 0}));
    machine_.remove(std::string("sys/") + hdapsRestFile);
    EXPECT_EQ(read(diskGuard), Data());
    EXPECT_FALSE(isSuccessful_);
}

TEST_F(MotionServicesTest, ReadsMetresPerSquareSecond)
{
    EXPECT_EQ(
        readIio({{"in_accel_x_raw", "980665"}, {"in_accel_y_raw", "-490333"}, {"in_accel_scale", "0.00001"}}),
        (Data{1, -0.5, 0}));
    EXPECT_EQ(readIio({{"in_accel_z_raw", "10"}, {"in_accel_z_scale", "0.980665"}, {"in_accel_scale", "5"}}),
              (Data{0, 0, 1}));
    EXPECT_EQ(readIio({{"in_accel_z_raw", "8.80665"}, {"in_accel_offset", "1"}}).z, 1);
}

TEST_F(MotionServicesTest, StaysWithinTheReply)
{
    machine_.write(applesmcFile, "(40000,-40000,1e300)");
    EXPECT_EQ(read(controller), (Data{32767 / 256.0, -128, 32767 / 256.0}));
}

TEST_F(MotionServicesTest, LeavesTheRestOfTheReplyZero)
{
    machine_.write(applesmcFile, "(-1,-1,-1)");
    Reply reply;
    reply.fill(std::byte(0xEE));
    EXPECT_EQ(registry_.callStructMethod(connectionTo(controller), 5, Reply(), reply), registrySuccess);
    EXPECT_EQ(reply[5], std::byte(0xFF));
    EXPECT_THAT(std::span(reply).subspan(6), testing::Each(std::byte(0)));
}

TEST_F(MotionServicesTest, FailsAtGarbage)
{
    for (const auto *const text : {"", "(1,2)", "(1,2,3,4)", "1,2,3", "(a,b,c)", "(nan,nan,nan)"}) {
        machine_.write(applesmcFile, text);
        EXPECT_EQ(read(controller), Data());
        EXPECT_FALSE(isSuccessful_) << text;
    }
    EXPECT_EQ(readIio({{"in_accel_x_raw", "100"}, {"in_accel_y_raw", "?"}}), Data());
    EXPECT_FALSE(isSuccessful_);
}

TEST_F(MotionServicesTest, TakesNoDeviceForAnAccelerometerThatLacksAnAxis)
{
    machine_.addIio(0, {{"in_accel_x_raw", "1"}, {"in_accel_y_raw", "1"}});
    machine_.addIio(1, {{"in_anglvel_x_raw", "1"}, {"in_anglvel_y_raw", "1"}, {"in_anglvel_z_raw", "1"}});
    EXPECT_EQ(countOf(iio), 0U);
}

TEST_F(MotionServicesTest, FailsWhileTheSensorIsAway)
{
    machine_.write(applesmcFile, "(256,0,0)");
    const auto connection = connectionTo(controller);
    machine_.remove("sys/devices");
    EXPECT_EQ(read(connection), Data());
    EXPECT_FALSE(isSuccessful_);
    machine_.write(applesmcFile, "(256,0,0)");
    EXPECT_EQ(read(connection), (Data{1, 0, 0}));
}

TEST_F(MotionServicesTest, OpensNothingThatMayNotBeRead)
{
    const auto file = machine_.write(applesmcFile, "(256,0,0)");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    const NobodysRights rights;
    EXPECT_EQ(connectionTo(controller), 0U);
}

TEST_F(MotionServicesTest, ConnectsToNothingThatDoesNotAnswer)
{
    machine_.addIio(0, {{"in_accel_x_raw", "1"}, {"in_accel_y_raw", "1"}});
    machine_.write("bus/iio/devices/iio:device0/in_accel_z_raw/a folder", ""); // opens, but says nothing
    EXPECT_EQ(countOf(iio), 1U);
    EXPECT_EQ(connectionTo(iio), 0U);
}

TEST_F(MotionServicesTest, HasNoOtherMethod)
{
    machine_.write(applesmcFile, "(256,0,0)");
    const auto connection = connectionTo(controller);
    Reply reply{};
    EXPECT_NE(registry_.callStructMethod(connection, 4, Reply(), reply), registrySuccess);
    EXPECT_NE(registry_.callStructMethod(connection, 5, Reply(), std::span(reply).first(39)),
              registrySuccess);
    std::array<std::uint64_t, 2> scalars{};
    EXPECT_NE(registry_.callScalarMethod(connection, 5, {}, scalars), registrySuccess);
    EXPECT_THAT(reply, testing::Each(std::byte(0)));
}

} // namespace platform

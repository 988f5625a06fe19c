#include "SharedCore/SensorManager/MotionSensor.h"

#include "Tests/SharedCore/SensorManager/SensorTest.h"

namespace sharedcore {

namespace {

using Data = MotionSensor::Data;
using testing::ElementsAre;

constexpr auto noAccelerometer =
    "⚠️ MotionSensor: No accelerometer found (desktop Mac or unsupported model)\n";

class MotionSensorTest : public SensorTest
{
protected:
    fakes::FakeService &addLegacy(const std::string &name, std::vector<std::byte> reply = bytes({0, 1}))
    {
        return registry_.add({.className = name, .reply = std::move(reply)});
    }

    fakes::FakeService &addSpu()
    {
        return registry_.add(
            {.className = "AppleSPUHIDDevice",
             .properties = {{"PrimaryUsagePage", std::int64_t{0xFF00}}, {"PrimaryUsage", std::int64_t{3}}},
             .isHid = true});
    }

    [[nodiscard]] std::string printedByOpen()
    {
        return printedBy([this] { isOpened_ = sensor_.open(); });
    }

    [[nodiscard]] Data readOf(std::vector<std::byte> reply)
    {
        addLegacy("SMCMotionSensor", std::move(reply));
        EXPECT_TRUE(sensor_.open());
        const auto data = sensor_.read();
        sensor_.close();
        return data;
    }

    bool isOpened_ = false;
    MotionSensor sensor_;
};

} // namespace

TEST_F(MotionSensorTest, TriesTheSourcesInTheirOrder)
{
    EXPECT_EQ(printedByOpen(), noAccelerometer);
    EXPECT_FALSE(isOpened_);
    EXPECT_THAT(registry_.asked, ElementsAre("IOHIDMotionSensor", "AppleEmbeddedMotionSensor",
                                             "SMCMotionSensor", "AppleSPUHIDDriver", "AppleSPUHIDDevice"));
    EXPECT_EQ(sensor_.read(), Data());
}

TEST_F(MotionSensorTest, OpensTheFirstOneThatIsThere)
{
    addSpu();
    addLegacy("SMCMotionSensor");
    addLegacy("AppleEmbeddedMotionSensor");
    EXPECT_EQ(printedByOpen(), "✅ MotionSensor: Opened AppleEmbeddedMotionSensor\n");
    EXPECT_TRUE(isOpened_);
    EXPECT_THAT(registry_.asked, ElementsAre("IOHIDMotionSensor", "AppleEmbeddedMotionSensor"));
    EXPECT_THAT(registry_.clientTypes, ElementsAre(0U));
    EXPECT_EQ(registry_.heldServices(), 0U);
    sensor_.close();
}

TEST_F(MotionSensorTest, GoesOnWhereADriverRefuses)
{
    addLegacy("IOHIDMotionSensor").openResult = 7;
    addLegacy("SMCMotionSensor");
    EXPECT_EQ(printedByOpen(), "✅ MotionSensor: Opened SMCMotionSensor\n");
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
    sensor_.close();
}

TEST_F(MotionSensorTest, TakesTheNextNameAndNotTheNextServiceOfTheSame)
{
    addLegacy("IOHIDMotionSensor", bytes({0, 2})).openResult = 7;
    addLegacy("IOHIDMotionSensor", bytes({0, 3}));
    addLegacy("SMCMotionSensor");
    EXPECT_EQ(printedByOpen(), "✅ MotionSensor: Opened SMCMotionSensor\n");
    EXPECT_EQ(registry_.clientTypes.size(), 2U);
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
    sensor_.close();
}

TEST_F(MotionSensorTest, TakesTheReportsWhereNoDriverIsAsked)
{
    auto &spu = addSpu();
    EXPECT_EQ(printedByOpen(), "✅ MotionSensor: Opened Apple SPU HID accelerometer (experimental)\n");
    EXPECT_TRUE(isOpened_);
    EXPECT_EQ(sensor_.read(), Data());
    std::vector<std::byte> report(22);
    report[8] = std::byte(2);
    for (int count = 0; count < 8; ++count) {
        EXPECT_TRUE(spu.hid.send(report));
    }
    EXPECT_EQ(sensor_.read(), (Data{2, 0, 0}));
    sensor_.close();
    EXPECT_EQ(sensor_.read(), Data());
    EXPECT_FALSE(spu.hid.exists);
}

TEST_F(MotionSensorTest, DecodesAReply)
{
    EXPECT_EQ(readOf(bytes({0x00, 0x01})), (Data{1, 0, 0}));
}

TEST_F(MotionSensorTest, DecodesANegativeReply)
{
    EXPECT_EQ(readOf(bytes({0x00, 0xFF})), (Data{-1, 0, 0}));
}

TEST_F(MotionSensorTest, DecodesAllAxesAndNothingBehindThem)
{
    auto reply = bytes({0x80, 0x00, 0xFF, 0x7F, 0x00, 0x80});
    reply.resize(40, std::byte(0xEE));
    EXPECT_EQ(readOf(reply), (Data{0.5, 32767 / 256.0, -128}));
}

TEST_F(MotionSensorTest, CallsTheDriverAsItExpects)
{
    static_cast<void>(readOf(bytes({1, 2, 3, 4, 5, 6})));
    EXPECT_THAT(registry_.calls, ElementsAre(fakes::FakeHardwareRegistry::Call{5, 40, 40, true}));
}

TEST_F(MotionSensorTest, ReadsZeroWhereTheCallFails)
{
    addLegacy("IOHIDMotionSensor").callResult = -5;
    ASSERT_TRUE(sensor_.open());
    EXPECT_EQ(sensor_.read(), Data());
    sensor_.close();
}

TEST_F(MotionSensorTest, ClosesWhatItOpened)
{
    addLegacy("IOHIDMotionSensor");
    ASSERT_TRUE(sensor_.open());
    EXPECT_EQ(registry_.openConnections(), 1U);
    sensor_.close();
    EXPECT_EQ(registry_.openConnections(), 0U);
    EXPECT_EQ(sensor_.read(), Data());
    EXPECT_TRUE(registry_.calls.empty()); // a closed sensor asks nobody
    sensor_.close();
}

TEST_F(MotionSensorTest, ClosingWhatNeverOpenedDoesNothing)
{
    EXPECT_EQ(printedBy([this] { sensor_.close(); }), "");
    EXPECT_EQ(sensor_.read(), Data());
    EXPECT_TRUE(registry_.calls.empty());
    EXPECT_TRUE(registry_.asked.empty());
}

TEST_F(MotionSensorTest, ClosesBeforeItOpensAnew)
{
    auto &spu = addSpu();
    ASSERT_TRUE(sensor_.open());
    addLegacy("SMCMotionSensor");
    ASSERT_TRUE(sensor_.open());
    EXPECT_FALSE(spu.hid.exists);
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
    ASSERT_TRUE(sensor_.open());
    EXPECT_EQ(registry_.openConnections(), 1U);
    sensor_.close();
}

TEST_F(MotionSensorTest, IsClosedWithItsObject)
{
    auto &spu = addSpu();
    {
        MotionSensor sensor;
        ASSERT_TRUE(sensor.open());
    }
    EXPECT_THAT(spu.hid.calls,
                ElementsAre("open", "register", "schedule", "unregister", "unschedule", "close"));
    addLegacy("SMCMotionSensor");
    {
        MotionSensor sensor;
        ASSERT_TRUE(sensor.open());
    }
    EXPECT_EQ(registry_.openConnections(), 0U);
}

} // namespace sharedcore

#include "SharedCore/SensorManager/AppleSPUHIDAccelerometerBackend.h"
#include "SharedCore/SensorManager/LidAngleSensor.h"
#include "SharedCore/SensorManager/MotionSensor.h"
#include "Tests/Platform/Sysfs/RecordedDescriptors.h"
#include "Tests/Platform/Sysfs/RegistryTest.h"
#include "Tests/Support/Eventually.h"

#include <QByteArray>

#include <atomic>
#include <thread>

namespace platform {

namespace {

using Data = sharedcore::MotionSensor::Data;
using sharedcore::LidAngleSensor;
using sharedcore::MotionSensor;
using testsupport::accelerometerReport;
using testsupport::eventually;
using testsupport::ReportPipe;

constexpr std::int32_t oneG = 65536;

class SensorsOnLinuxTest : public RegistryTest
{
protected:
    HardwareRegistryInstallation installation_{registry_};
    MotionSensor sensor_;
};

} // namespace

TEST_F(SensorsOnLinuxTest, FindTheAccelerometerAmongOtherDevices)
{
    static_cast<void>(machine_.addHidraw(0, keyboardDescriptor));
    static_cast<void>(machine_.addHidraw(1, mouseDescriptor));
    static_cast<void>(machine_.addHidraw(2, receiverDescriptor));
    static_cast<void>(machine_.addHidraw(3, sensorHubDescriptor));
    static_cast<void>(machine_.addHidraw(4, {0x06, 0x00, 0xFF, 0x09, 0x03, 0xA1})); // garbage
    static_cast<void>(machine_.addHidraw(5, {}));
    int number = 6;
    for (const auto &descriptor : recordedDescriptors) {
        static_cast<void>(machine_.addHidraw(number++, descriptor));
    }
    EXPECT_FALSE(sensor_.open());
    const auto node = machine_.addHidraw(number, accelerometerDescriptor);
    ASSERT_TRUE(sensor_.open());
    const ReportPipe pipe(node);
    for (int count = 0; count < 8; ++count) {
        EXPECT_TRUE(pipe.write(accelerometerReport(oneG)));
    }
    EXPECT_TRUE(eventually([this] { return sensor_.read() == Data{1, 0, 0}; }));
}

TEST_F(SensorsOnLinuxTest, PreferADriverThatIsAsked)
{
    static_cast<void>(machine_.addHidraw(0, accelerometerDescriptor));
    machine_.write("devices/platform/applesmc.768/position", "(256,0,0)");
    ASSERT_TRUE(sensor_.open());
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
    machine_.remove("sys/devices");
    EXPECT_EQ(sensor_.read(), Data());
}

TEST_F(SensorsOnLinuxTest, TakeTheNextWhereOneDoesNotAnswer)
{
    for (const auto *const axis : {"x", "y", "z"}) {
        machine_.write(std::string("bus/iio/devices/iio:device0/in_accel_") + axis + "_raw/a folder", "");
    }
    machine_.write("devices/platform/applesmc.768/position", "(256,0,0)");
    ASSERT_TRUE(sensor_.open());
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
}

TEST_F(SensorsOnLinuxTest, TakeTheNextWhereOneMayNotBeRead)
{
    const auto forbidden = machine_.addHidraw(0, accelerometerDescriptor);
    std::filesystem::permissions(forbidden, std::filesystem::perms::none);
    const auto node = machine_.addHidraw(1, accelerometerDescriptor);
    std::filesystem::permissions(node, std::filesystem::perms(0644));
    {
        const NobodysRights rights;
        EXPECT_TRUE(sensor_.open());
    }
    const ReportPipe pipe(node);
    for (int count = 0; count < 8; ++count) {
        EXPECT_TRUE(pipe.write(accelerometerReport(-oneG)));
    }
    EXPECT_TRUE(eventually([this] { return sensor_.read() == Data{-1, 0, 0}; }));
}

TEST_F(SensorsOnLinuxTest, KeepTheLastSampleOfADeviceThatWasUnplugged)
{
    const auto node = machine_.addHidraw(0, accelerometerDescriptor);
    ASSERT_TRUE(sensor_.open());
    {
        const ReportPipe pipe(node);
        for (int count = 0; count < 8; ++count) {
            EXPECT_TRUE(pipe.write(accelerometerReport(oneG)));
        }
    }
    EXPECT_TRUE(eventually([this] { return sensor_.read() == Data{1, 0, 0}; }));
    testsupport::letPass(std::chrono::milliseconds(20));
    EXPECT_EQ(sensor_.read(), (Data{1, 0, 0}));
    sensor_.close();
    EXPECT_EQ(sensor_.read(), Data());
}

TEST_F(SensorsOnLinuxTest, ReadTheLidDirectlyAndFromTheLight)
{
    LidAngleSensor lid;
    EXPECT_EQ(lid.read(), 90);
    machine_.write("devices/platform/applesmc.768/light", "(51,51)");
    EXPECT_EQ(lid.read(), 27);
    machine_.addIio(0, {{"in_angl0_label", "hinge"}, {"in_angl0_raw", "2"}});
    EXPECT_NEAR(lid.read(), 114.59, 0.01);
    machine_.addIio(0, {{"in_angl0_raw", "200"}});
    EXPECT_EQ(lid.read(), 27);
    machine_.write("class/dmi/id/product_name", "MacBookAir7,2");
    EXPECT_TRUE(LidAngleSensor::isMacBook());
}

TEST_F(SensorsOnLinuxTest, AreThoseOfTheFolderThatTheEnvironmentNames)
{
    machine_.write("class/dmi/id/product_name", "MacBookAir7,2");
    qputenv("STIRRA_HARDWARE_ROOT", QByteArray::fromStdString(machine_.root().string()));
    EXPECT_EQ(makeNativeHardwareRegistry()->modelName(), "MacBookAir7,2");
    qunsetenv("STIRRA_HARDWARE_ROOT");
}

TEST_F(SensorsOnLinuxTest, AreReadFromFourThreadsWhileReportsStream)
{
    const auto node = machine_.addHidraw(0, accelerometerDescriptor);
    ASSERT_TRUE(sensor_.open());
    const ReportPipe pipe(node);
    std::atomic<int> readersThatSawIt = 0;
    std::atomic<bool> isOver = false;
    std::vector<std::jthread> readers;
    for (int count = 0; count < 4; ++count) {
        readers.emplace_back([&] {
            int last = 0;
            while (!isOver && last < 1000) {
                const auto data = sensor_.read();
                EXPECT_EQ(data.x, data.y); // of the same report
                EXPECT_EQ(data.x, data.z);
                EXPECT_GE(data.x, last);
                last = static_cast<int>(data.x);
            }
            readersThatSawIt += last >= 1000 ? 1 : 0;
        });
    }
    std::int32_t sent = 0;
    EXPECT_TRUE(eventually(
        [&] {
            for (int burst = 0; burst < 32; ++burst) {
                const auto axis = std::min(sent, 1000) * oneG;
                sent += pipe.write(accelerometerReport(axis, axis, axis)) ? 1 : 0;
            }
            return readersThatSawIt == 4;
        },
        std::chrono::seconds(40)));
    isOver = true;
}

TEST_F(SensorsOnLinuxTest, AreAskedFromFourThreads)
{
    machine_.write("devices/platform/applesmc.768/position", "(256,-256,512)");
    machine_.write("devices/platform/applesmc.768/light", "(51,51)");
    ASSERT_TRUE(sensor_.open());
    std::vector<std::jthread> readers;
    for (int count = 0; count < 4; ++count) {
        readers.emplace_back([this] {
            LidAngleSensor lid;
            for (int reading = 0; reading < 200; ++reading) {
                EXPECT_EQ(sensor_.read(), (Data{1, -1, 2}));
                EXPECT_EQ(lid.read(), 27);
            }
        });
    }
}

} // namespace platform

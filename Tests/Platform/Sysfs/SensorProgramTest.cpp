#include "Tests/Platform/Sysfs/Descriptors.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace platform {

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

std::string hexadecimal(const Descriptor &bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const auto byte : bytes) {
        text += {digits[byte >> 4U], digits[byte & 15U]};
    }
    return text;
}

// The program that reads the sensors, on a machine whose /sys and /dev umockdev makes up at their real paths.
class SensorProgramTest : public testing::Test
{
protected:
    void add(const std::string &device) { devices_ << device << '\n'; }

    void addHidraw(int number, const Descriptor &descriptor)
    {
        const auto name = "hidraw" + std::to_string(number);
        const auto parent = "/devices/hub/0019:05AC:000" + std::to_string(number) + ".0001";
        add("P: " + parent + "\nE: SUBSYSTEM=hid\nH: report_descriptor=" + hexadecimal(descriptor) + '\n');
        add("P: " + parent + "/hidraw/" + name + "\nN: " + name + "\nE: DEVNAME=/dev/" + name +
            "\nE: SUBSYSTEM=hidraw\nA: dev=247:" + std::to_string(number) + "\nL: device=../../../" +
            parent.substr(parent.rfind('/') + 1) + '\n');
    }

    void addScript(const std::string &option, const std::string &node, const std::string &script)
    {
        const auto file = folder_.path() / ("script" + std::to_string(options_.size()));
        std::ofstream(file) << script;
        options_ << QString::fromStdString(option) << QString::fromStdString(node + '=' + file.string());
    }

    [[nodiscard]] std::string printed()
    {
        const auto file = folder_.path() / "machine.umockdev";
        std::ofstream(file) << devices_.str();
        auto environment = QProcessEnvironment::systemEnvironment();
        // The sanitizer is not the first library of a program that others were loaded into.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0"));
        testsupport::ChildProcess program(
            QStringLiteral("umockdev-run"),
            QStringList{QStringLiteral("-d"), QString::fromStdString(file)} + options_ +
                QStringList{QStringLiteral("--"), QStringLiteral(STIRRA_SENSOR_PROGRAM)},
            environment);
        EXPECT_EQ(program.waitForExit(50s), 0) << program.standardError().toStdString();
        return program.standardOutput().toStdString();
    }

private:
    testsupport::TemporaryFolder folder_;
    std::ostringstream devices_;
    QStringList options_;
};

} // namespace

TEST_F(SensorProgramTest, WakesAndReadsTheAccelerometerAmongOtherDevices)
{
    addHidraw(0, keyboardDescriptor);
    addHidraw(1, receiverDescriptor);
    addHidraw(2, sensorHubDescriptor);
    addHidraw(3, accelerometerDescriptor);
    addHidraw(4, mouseDescriptor);
    // The calls are answered where they have the right size; umockdev does not look at what is set.
    addScript("-i", "/dev/hidraw3",
              "@DEV /dev/hidraw3\nHIDIOCGFEATURE 4 00010000\nHIDIOCSFEATURE 4 00020000\n");
    // Reports of 1 g on x, with pauses, without which some would come as one.
    std::string reports;
    for (int count = 0; count < 200; ++count) {
        reports += "r 10 ^@^@^@^@^@^@^@^@^A^@^@^@^@^@^@^@^@^@^@^@^@^@\n";
    }
    addScript("-s", "/dev/hidraw3", reports);
    EXPECT_EQ(printed(), "model  desktop\n"
                         "⚠️ AmbientLightSensor: AppleLMUController not found\n"
                         "lid 90.000\n"
                         "⚠️ AmbientLightSensor: AppleLMUController not found\n"
                         "light 0.000\n"
                         "property SensorPropertyReportingState 0\n"
                         "property SensorPropertyPowerState 0\n"
                         "property ReportInterval 0\n"
                         "✅ MotionSensor: Opened Apple SPU HID accelerometer (experimental)\n"
                         "motion 1.000 0.000 0.000\n");
}

TEST_F(SensorProgramTest, ReadsTheSensorsOfAConvertible)
{
    add("P: /devices/virtual/dmi/id\nE: SUBSYSTEM=dmi\nA: product_name=MacBookPro11,1\\n\n");
    add("P: /devices/hub/HID-SENSOR-200041/iio:device0\nE: SUBSYSTEM=iio\n"
        "A: in_illuminance_raw=2782\\n\nA: in_illuminance_scale=0.1\\n\nA: in_illuminance_offset=0\\n\n");
    add("P: /devices/hub/HID-SENSOR-200073/iio:device1\nE: SUBSYSTEM=iio\n"
        "A: in_accel_x_raw=0\\n\nA: in_accel_y_raw=-5003\\n\nA: in_accel_z_raw=10007\\n\n"
        "A: in_accel_scale=0.00098\\n\n");
    add("P: /devices/hub/HID-SENSOR-20020b/iio:device2\nE: SUBSYSTEM=iio\n"
        "A: in_angl0_label=hinge\\n\nA: in_angl0_raw=120\\n\nA: in_angl_scale=0.017453293\\n\n");
    const auto lines = printed();
    EXPECT_THAT(lines, HasSubstr("model MacBookPro11,1 portable\nlid 120.000\nlight 0.200\n"));
    EXPECT_THAT(lines, HasSubstr("✅ MotionSensor: Opened IOHIDMotionSensor\nmotion 0.000 -0.500 1.000\n"));
}

TEST_F(SensorProgramTest, FindsNothingOnADesktop)
{
    add("P: /devices/virtual/dmi/id\nE: SUBSYSTEM=dmi\nA: product_name=Some Desktop\\n\n");
    addHidraw(0, keyboardDescriptor);
    addHidraw(1, mouseDescriptor);
    const auto lines = printed();
    EXPECT_THAT(lines, HasSubstr("model Some Desktop desktop\n"));
    EXPECT_THAT(
        lines, HasSubstr("⚠️ MotionSensor: No accelerometer found (desktop Mac or unsupported model)\n"));
    EXPECT_THAT(lines, Not(HasSubstr("motion ")));
}

} // namespace platform

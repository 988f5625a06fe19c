#include "Platform/Linux/Sysfs/HidFeature.h"

#include "Tests/Platform/Sysfs/RecordedDescriptors.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;

std::optional<HidSetting> settingOf(const Descriptor &descriptor, std::string_view property,
                                    std::int32_t value)
{
    return hidSetting(parsedReportDescriptor(std::as_bytes(std::span(descriptor))).value(), property, value);
}

// A device whose feature report is `report`, behind its number.
class FakeFeatureFile final : public HidFeatureFile
{
public:
    int get(std::span<std::byte> bytes) override
    {
        askedFor.push_back(bytes.front());
        std::ranges::copy(report, bytes.begin());
        return getResult.value_or(static_cast<int>(report.size()));
    }

    int set(std::span<std::byte> bytes) override
    {
        report.assign(bytes.begin(), bytes.end());
        ++sets;
        return 0;
    }

    std::vector<std::byte> report;
    std::vector<std::byte> askedFor; // reports, by number
    std::optional<int> getResult;    // in place of the size
    int sets = 0;
};

// The bytes of a report of ones after the value was set.
std::vector<int> written(const Descriptor &descriptor, std::string_view property, std::int32_t value)
{
    const auto setting = settingOf(descriptor, property, value);
    if (!setting) {
        return {};
    }
    std::vector<std::byte> report(1 + setting->reportSize, std::byte(0xFF));
    report.front() = static_cast<std::byte>(setting->reportId);
    writeSetting(*setting, report);
    std::vector<int> numbers;
    for (const auto byte : report) {
        numbers.push_back(std::to_integer<int>(byte));
    }
    return numbers;
}

} // namespace

TEST(HidFeature, ChoosesAState)
{
    EXPECT_THAT(written(accelerometerDescriptor, "SensorPropertyReportingState", 1),
                ElementsAre(0, 0xF2, 0xFF, 0xFF));
    EXPECT_THAT(written(accelerometerDescriptor, "SensorPropertyReportingState", 0),
                ElementsAre(0, 0xF1, 0xFF, 0xFF));
    EXPECT_THAT(written(sensorHubDescriptor, "SensorPropertyReportingState", 1),
                ElementsAre(1, 0x01, 0xFF, 0xFF, 0xFF, 0xFF));
}

TEST(HidFeature, WritesANumber)
{
    EXPECT_THAT(written(accelerometerDescriptor, "SensorPropertyPowerState", 1),
                ElementsAre(0, 0x1F, 0xFF, 0xFF));
}

TEST(HidFeature, BringsTheIntervalIntoMilliseconds)
{
    EXPECT_THAT(written(accelerometerDescriptor, "ReportInterval", 1000), ElementsAre(0, 0xFF, 1, 0));
    EXPECT_THAT(written(sensorHubDescriptor, "ReportInterval", 300'000), ElementsAre(1, 0xFF, 0x2C, 1, 0, 0));
}

TEST(HidFeature, FindsTheSettingsOfAHubThatExists)
{
    const auto reporting = settingOf(surfaceGravity, "SensorPropertyReportingState", 1);
    const auto power = settingOf(surfaceGravity, "SensorPropertyPowerState", 1);
    const auto interval = settingOf(surfaceGravity, "ReportInterval", 20'000);
    ASSERT_TRUE(reporting && power && interval);
    EXPECT_EQ(reporting->bitOffset, 8U);
    EXPECT_EQ(power->bitOffset, 16U);
    EXPECT_EQ(interval->bitOffset, 32U);
    EXPECT_EQ(interval->value, 20U);
    EXPECT_EQ(interval->reportId, 165);
    EXPECT_EQ(interval->reportSize, 14U);
}

TEST(HidFeature, StaysInTheRangeOfTheDevice)
{
    EXPECT_THAT(written(accelerometerDescriptor, "SensorPropertyPowerState", 100),
                ElementsAre(0, 0x5F, 0xFF, 0xFF));
    EXPECT_THAT(written(accelerometerDescriptor, "ReportInterval", -1000), ElementsAre(0, 0xFF, 0, 0));
}

TEST(HidFeature, HasNothingToWriteWithoutASetting)
{
    EXPECT_FALSE(settingOf(sensorHubDescriptor, "SensorPropertyPowerState", 1));
    EXPECT_FALSE(settingOf(mouseDescriptor, "ReportInterval", 1000));
    EXPECT_FALSE(settingOf(accelerometerDescriptor, "Another", 1));
    EXPECT_FALSE(settingOf(accelerometerDescriptor, "SensorPropertyReportingState", 7)); // no such choice
    for (const std::int32_t value : {-1, 0x1000'0041, INT32_MAX, INT32_MIN}) {
        EXPECT_FALSE(settingOf(accelerometerDescriptor, "SensorPropertyReportingState", value));
    }
}

TEST(HidFeature, LeavesTheRestOfTheReportAsTheDeviceHasIt)
{
    FakeFeatureFile file;
    file.report = {std::byte(0), std::byte(0x51), std::byte(0x34), std::byte(0x12)};
    const auto setting = settingOf(accelerometerDescriptor, "SensorPropertyReportingState", 1);
    EXPECT_EQ(applySetting(*setting, file), 0);
    EXPECT_THAT(file.report, ElementsAre(std::byte(0), std::byte(0x52), std::byte(0x34), std::byte(0x12)));
    EXPECT_EQ(applySetting(*settingOf(accelerometerDescriptor, "ReportInterval", 1000), file), 0);
    EXPECT_THAT(file.report, ElementsAre(std::byte(0), std::byte(0x52), std::byte(1), std::byte(0)));
    EXPECT_THAT(file.askedFor, ElementsAre(std::byte(0), std::byte(0)));
}

TEST(HidFeature, AsksForTheReportByItsNumber)
{
    FakeFeatureFile file;
    file.report.resize(6);
    EXPECT_EQ(applySetting(*settingOf(sensorHubDescriptor, "SensorPropertyReportingState", 1), file), 0);
    EXPECT_THAT(file.askedFor, ElementsAre(std::byte(1)));
    EXPECT_EQ(file.report.front(), std::byte(1));
    EXPECT_EQ(file.report[1], std::byte(1));
}

TEST(HidFeature, SetsNothingWhereTheDeviceDoesNotTell)
{
    FakeFeatureFile file;
    file.getResult = -ENODEV;
    EXPECT_EQ(applySetting(*settingOf(accelerometerDescriptor, "ReportInterval", 1000), file), ENODEV);
    EXPECT_EQ(file.sets, 0);
}

TEST(HidFeature, SetsNothingWhereTheDeviceTellsOnlyAPart)
{
    FakeFeatureFile file;
    file.report = {std::byte(0), std::byte(0x51), std::byte(0x34)};
    const auto setting = settingOf(accelerometerDescriptor, "SensorPropertyReportingState", 1);
    for (const int size : {0, 1, 3}) {
        file.getResult = size;
        EXPECT_EQ(applySetting(*setting, file), EIO) << size;
    }
    EXPECT_EQ(file.sets, 0);
    file.getResult = 4;
    EXPECT_EQ(applySetting(*setting, file), 0);
    EXPECT_EQ(file.sets, 1);
}

} // namespace platform

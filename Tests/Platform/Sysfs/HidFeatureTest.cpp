#include "Platform/Linux/Sysfs/HidFeature.h"

#include "Tests/Platform/Sysfs/Descriptors.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;

std::optional<HidSetting> settingOf(const Descriptor &descriptor, std::string_view property,
                                    std::int32_t value)
{
    return hidSetting(parsedReportDescriptor(std::as_bytes(std::span(descriptor))).value(), property, value);
}

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

} // namespace platform

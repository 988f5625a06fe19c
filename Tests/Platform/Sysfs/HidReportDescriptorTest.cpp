#include "Platform/Linux/Sysfs/HidReportDescriptor.h"

#include "Tests/Platform/Sysfs/RecordedDescriptors.h"

#include <gmock/gmock.h>

namespace platform {

namespace {

using testing::ElementsAre;
using testing::SizeIs;

std::optional<HidReportDescriptor> parsed(const Descriptor &descriptor)
{
    return parsedReportDescriptor(std::as_bytes(std::span(descriptor)));
}

// The items, in an application of the page 1 and the usage 2, with a field at their end.
HidField fieldBehind(const Descriptor &items)
{
    Descriptor descriptor{0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x75, 0x08, 0x95, 0x02};
    descriptor.insert(descriptor.end(), items.begin(), items.end());
    descriptor.insert(descriptor.end(), {0x81, 0x02, 0xC0});
    const auto result = parsed(descriptor);
    return result && !result->fields.empty() ? result->fields.back() : HidField();
}

HidUsage primaryOf(const Descriptor &descriptor)
{
    const auto result = parsed(descriptor);
    return result ? result->primaryUsage.value_or(HidUsage()) : HidUsage();
}

} // namespace

TEST(HidReportDescriptor, KnowsWhatUsualDevicesAreFor)
{
    EXPECT_EQ(primaryOf(mouseDescriptor), (HidUsage{1, 2}));
    EXPECT_EQ(primaryOf(keyboardDescriptor), (HidUsage{1, 6}));
    EXPECT_EQ(primaryOf(receiverDescriptor), (HidUsage{1, 2}));
    EXPECT_EQ(primaryOf(accelerometerDescriptor), (HidUsage{0xFF00, 3}));
    EXPECT_EQ(primaryOf(sensorHubDescriptor), (HidUsage{0x20, 0x73}));
    EXPECT_EQ(parsed({0x75, 0x08, 0x95, 0x01, 0x81, 0x02})->primaryUsage, std::nullopt);
}

TEST(HidReportDescriptor, KnowsWhatDevicesThatExistAreFor)
{
    EXPECT_EQ(primaryOf(pixartMouse), (HidUsage{1, 2}));
    EXPECT_EQ(primaryOf(hpMouse), (HidUsage{1, 2}));
    EXPECT_EQ(primaryOf(atkMouse), (HidUsage{1, 2}));
    EXPECT_EQ(primaryOf(atkReceiver), (HidUsage{0x0C, 1}));
    EXPECT_EQ(primaryOf(atkKeyboard), (HidUsage{1, 6}));
    EXPECT_EQ(primaryOf(elanKeyboard), (HidUsage{1, 6}));
    EXPECT_EQ(primaryOf(surfaceGravity), (HidUsage{0x20, 1}));
}

TEST(HidReportDescriptor, PlacesTheFieldsOfDevicesThatExist)
{
    const auto wheel = parsed(pixartMouse)->fields.back();
    EXPECT_EQ(wheel.bitOffset, 8U);
    EXPECT_THAT(wheel.usages, ElementsAre(HidUsage{1, 0x30}, HidUsage{1, 0x31}, HidUsage{1, 0x38}));
    EXPECT_THAT(parsed(hpMouse)->fields.front().usages, SizeIs(3));
    const auto tilt = parsed(atkMouse)->fields.back();
    EXPECT_EQ(tilt.bitOffset, 48U);
    EXPECT_THAT(tilt.usages, ElementsAre(HidUsage{0x0C, 0x238}));
    const auto vendor = parsed(atkReceiver)->fields.back();
    EXPECT_EQ(vendor.type, HidReportType::feature);
    EXPECT_EQ(vendor.reportId, 6);
    EXPECT_EQ(vendor.bitSize * vendor.count, 56U);
    EXPECT_EQ(vendor.collection, (HidUsage{0xFF04, 2}));
    const auto keys = parsed(elanKeyboard)->fields.back();
    EXPECT_EQ(keys.bitOffset, 16U);
    EXPECT_THAT(keys.usages, SizeIs(0x92));
    const auto gravity = parsed(surfaceGravity)->fields.back();
    EXPECT_EQ(gravity.reportId, 165);
    EXPECT_EQ(gravity.bitOffset, 48U);
    EXPECT_THAT(gravity.usages, ElementsAre(HidUsage{0x20, 0x455}));
}

TEST(HidReportDescriptor, PlacesTheFieldsOfAMouse)
{
    const auto mouse = parsed(mouseDescriptor);
    ASSERT_THAT(mouse->fields, SizeIs(3));
    EXPECT_FALSE(mouse->hasReportIds);
    const auto &buttons = mouse->fields[0];
    EXPECT_EQ(buttons.bitSize * buttons.count, 3U);
    EXPECT_THAT(buttons.usages, ElementsAre(HidUsage{9, 1}, HidUsage{9, 2}, HidUsage{9, 3}));
    EXPECT_TRUE(mouse->fields[1].isConstant);
    EXPECT_THAT(mouse->fields[1].usages, SizeIs(0));
    const auto &axes = mouse->fields[2];
    EXPECT_EQ(axes.bitOffset, 8U);
    EXPECT_THAT(axes.usages, ElementsAre(HidUsage{1, 0x30}, HidUsage{1, 0x31}));
    EXPECT_EQ(axes.minimum, -127);
    EXPECT_EQ(axes.maximum, 127);
    EXPECT_EQ(axes.collection, (HidUsage{1, 1}));
}

TEST(HidReportDescriptor, KeepsReportsOfDifferentKindsApart)
{
    const auto keyboard = parsed(keyboardDescriptor);
    ASSERT_THAT(keyboard->fields, SizeIs(5));
    EXPECT_EQ(keyboard->fields[2].type, HidReportType::output);
    EXPECT_EQ(keyboard->fields[2].bitOffset, 0U);
    const auto &keys = keyboard->fields[4];
    EXPECT_EQ(keys.bitOffset, 16U);
    EXPECT_FALSE(keys.isVariable);
    EXPECT_EQ(keys.maximum, 255);
    EXPECT_THAT(keys.usages, SizeIs(256));
}

TEST(HidReportDescriptor, KeepsReportsOfDifferentNumbersApart)
{
    const auto receiver = parsed(receiverDescriptor);
    EXPECT_TRUE(receiver->hasReportIds);
    ASSERT_THAT(receiver->fields, SizeIs(4));
    EXPECT_EQ(receiver->fields[1].reportId, 0x10);
    EXPECT_EQ(receiver->fields[1].bitOffset, 0U);
    EXPECT_EQ(receiver->fields[3].reportId, 0x12);
}

TEST(HidReportDescriptor, TakesThePageThatHoldsAtTheMainItem)
{
    EXPECT_THAT(fieldBehind({0x09, 0x30, 0x05, 0x09}).usages, ElementsAre(HidUsage{9, 0x30}));
    EXPECT_THAT(fieldBehind({0x0B, 0x30, 0x00, 0x20, 0x00, 0x05, 0x09}).usages,
                ElementsAre(HidUsage{0x20, 0x30}));
}

TEST(HidReportDescriptor, ForgetsUsagesBehindAMainItem)
{
    EXPECT_THAT(fieldBehind({0x09, 0x30, 0x81, 0x02}).usages, SizeIs(0));
}

TEST(HidReportDescriptor, KeepsNoMoreUsagesThanAFieldSpeaksOf)
{
    EXPECT_THAT(fieldBehind({0x19, 0x01, 0x29, 0x20}).usages, ElementsAre(HidUsage{1, 1}, HidUsage{1, 2}));
}

TEST(HidReportDescriptor, PushesAndPops)
{
    const auto field =
        fieldBehind({0xA4, 0x75, 0x10, 0x15, 0xFF, 0xA4, 0x75, 0x01, 0xB4, 0x05, 0x09, 0x09, 0x01});
    EXPECT_EQ(field.bitSize, 16U);
    EXPECT_EQ(field.minimum, -1);
    EXPECT_THAT(field.usages, ElementsAre(HidUsage{9, 1}));
    EXPECT_EQ(fieldBehind({0xA4, 0x75, 0x10, 0xB4}).bitSize, 8U);
}

TEST(HidReportDescriptor, TakesTheFirstUsageOfASet)
{
    EXPECT_THAT(fieldBehind({0xA9, 0x01, 0x09, 0x30, 0x09, 0x31, 0xA9, 0x00, 0x09, 0x32}).usages,
                ElementsAre(HidUsage{1, 0x30}, HidUsage{1, 0x32}));
}

TEST(HidReportDescriptor, SkipsLongItemsAndUnknownOnes)
{
    EXPECT_EQ(fieldBehind({0xFE, 0x03, 0x55, 1, 2, 3, 0x75, 0x04}).bitSize, 4U);
    EXPECT_EQ(fieldBehind({0xFE, 0x00, 0x55, 0xFE, 0x00, 0x56, 0x75, 0x04}).bitSize, 4U);
    EXPECT_EQ(fieldBehind({0xF4, 0xF5, 1, 0x0C, 0xF8, 0x75, 0x04}).bitSize, 4U);
}

TEST(HidReportDescriptor, SignsNumbersOfAllSizes)
{
    EXPECT_EQ(fieldBehind({0x16, 0x00, 0x80, 0x26, 0xFF, 0x7F}).minimum, -32768);
    EXPECT_EQ(fieldBehind({0x17, 0xFF, 0xFF, 0xFF, 0xFF, 0x25, 0xFE}).maximum, -2);
    EXPECT_EQ(fieldBehind({0x15, 0x00, 0x27, 0xFF, 0xFF, 0xFF, 0xFF}).maximum, 0xFFFFFFFF);
    EXPECT_EQ(fieldBehind({0x15, 0x01, 0x14, 0x25, 0xFF}).minimum, 0);
}

TEST(HidReportDescriptor, RefusesWhatIsNone)
{
    const Descriptor field{0x75, 0x08, 0x95, 0x01, 0x81, 0x02};
    EXPECT_TRUE(parsed(field));
    EXPECT_TRUE(parsed({}));
    const std::vector<Descriptor> wrong{
        {0x05},                               // cut off
        {0x27, 1, 2, 3},                      // cut off
        {0xFE, 0x03, 0x55, 1, 2},             // cut off
        {0xFE, 0x03},                         // cut off
        {0xA1, 0x01},                         // not ended
        {0xC0},                               // not begun
        {0xB4},                               // not pushed
        {0x85, 0x00},                         // report 0
        {0x86, 0x00, 0x01},                   // report 256
        {0x76, 0x01, 0x01},                   // a number of 257 bits
        {0x97, 0, 0, 0, 0x10},                // too many numbers
        {0x75, 0x40, 0x96, 0x01, 0x08, 0x80}, // a report of 16 KiB and a number
        {0x29, 0x01, 0x19, 0x02, 0x29, 0x01}, // a range from 2 to 1
    };
    for (const auto &descriptor : wrong) {
        EXPECT_FALSE(parsed(descriptor)) << testing::PrintToString(descriptor);
    }
}

TEST(HidReportDescriptor, RefusesWhatIsTooMuch)
{
    EXPECT_FALSE(parsed(Descriptor(65, 0xA4)));
    Descriptor collections;
    for (int count = 0; count < 65; ++count) {
        collections.insert(collections.end(), {0xA1, 0x00});
    }
    collections.insert(collections.end(), 65, 0xC0);
    EXPECT_FALSE(parsed(collections));
    Descriptor usages;
    for (int count = 0; count < 12289; ++count) {
        usages.insert(usages.end(), {0x09, 0x01});
    }
    EXPECT_FALSE(parsed(usages));
}

TEST(HidReportDescriptor, CutsARangeOffThatIsTooLong)
{
    // All that there are, and more in vain.
    const auto field = fieldBehind({0x15, 0x00, 0x27, 0xFF, 0xFF, 0x00, 0x00, 0x1A, 0x01, 0x00, 0x2A, 0xFF,
                                    0xFF, 0x1A, 0x00, 0x00, 0x2A, 0xFF, 0xFF, 0x96, 0xFF, 0x3F, 0x75, 0x01});
    ASSERT_THAT(field.usages, SizeIs(12288));
    EXPECT_EQ(field.usages.front(), (HidUsage{1, 1}));
    EXPECT_EQ(field.usages.back(), (HidUsage{1, 12288}));
    EXPECT_EQ(primaryOf({0x06, 0x00, 0xFF, 0x09, 0x03, 0xA1, 0x01, 0x75, 0x10, 0x95, 0x01, 0x19, 0x00, 0x2A,
                         0xFF, 0xFF, 0x81, 0x00, 0xC0}),
              (HidUsage{0xFF00, 3}));
}

TEST(HidReportDescriptor, KeepsTheFirstUsagesOfVeryMany)
{
    Descriptor descriptor{0x75, 0x01, 0x96, 0x00, 0x30};
    for (int count = 0; count < 10; ++count) {
        descriptor.insert(descriptor.end(), {0x1A, 0x00, 0x00, 0x2A, 0xFF, 0x2F, 0x81, 0x02});
    }
    const auto result = parsed(descriptor);
    ASSERT_TRUE(result);
    ASSERT_THAT(result->fields, SizeIs(10));
    EXPECT_THAT(result->fields[4].usages, SizeIs(12288));
    EXPECT_THAT(result->fields[5].usages, SizeIs(65536 - 5 * 12288));
    EXPECT_THAT(result->fields[6].usages, SizeIs(0));
    EXPECT_EQ(result->fields[9].bitOffset, 9U * 12288);
}

TEST(HidReportDescriptor, RefusesEachBeginningOfAnApplication)
{
    for (auto beginning = accelerometerDescriptor; beginning.size() > 6; beginning.pop_back()) {
        EXPECT_EQ(parsed(beginning).has_value(), beginning == accelerometerDescriptor) << beginning.size();
    }
}

} // namespace platform

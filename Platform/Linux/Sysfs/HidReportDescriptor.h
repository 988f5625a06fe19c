// What a HID device says of the reports that it sends and takes (Device Class Definition for
// HID 1.11, 6.2.2).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace platform {

// What a device or a part of it is for, from the HID Usage Tables.
struct HidUsage
{
    std::uint16_t page = 0;
    std::uint16_t id = 0;

    bool operator==(const HidUsage &) const = default;
};

enum class HidReportType : std::uint8_t { input, output, feature };

// Numbers of the same kind that follow one another in a report.
struct HidField
{
    HidReportType type{};
    std::uint8_t reportId = 0;         // 0 where the device does not number its reports
    std::size_t bitOffset = 0;         // of the first number; the report's number does not count
    std::size_t bitSize = 0;           // of each number
    std::size_t count = 0;             // of the numbers
    bool isConstant = false;           // padding
    bool isVariable = false;           // a number for each usage; else each number says which usage is on
    std::int64_t minimum = 0;          // of a number; of one that says a usage, the first usage's
    std::int64_t maximum = 0;          // of a number
    HidUsage collection;               // what the innermost collection around the field is for
    std::vector<HidUsage> usages = {}; // of which the field can speak, in its order
};

struct HidReportDescriptor
{
    // That of the first collection, which is what the device is for in the first place; nothing where there
    // is no collection.
    std::optional<HidUsage> primaryUsage;
    bool hasReportIds = false;
    std::vector<HidField> fields;
};

// Nothing where the bytes are no descriptor: an item is cut off, a collection is not begun or not ended,
// something is popped that was not pushed, a report's number is 0, or a report would be longer than the
// kernel's longest (16 KiB). Items that a later version of HID may have brought, and long items, are skipped.
// Usages beyond the first 12288 of a range, and beyond the first 65536 of a device, are left out, as devices
// exist that name all there could be.
// Any thread.
[[nodiscard]] std::optional<HidReportDescriptor> parsedReportDescriptor(std::span<const std::byte> bytes);

} // namespace platform

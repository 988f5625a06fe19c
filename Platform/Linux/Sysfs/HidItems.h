// The items of a HID report descriptor, one after the other (Device Class Definition for HID 1.11, 6.2.2.2
// on).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace platform {

enum class HidItemKind : std::uint8_t { main = 0, global = 1, local = 2, reserved = 3 };

// What an item says, together with its kind; those of a kind that are not named here say nothing that is of
// use.
namespace HidTag {
inline constexpr std::uint8_t input = 8;
inline constexpr std::uint8_t output = 9;
inline constexpr std::uint8_t collection = 10;
inline constexpr std::uint8_t feature = 11;
inline constexpr std::uint8_t endCollection = 12;

inline constexpr std::uint8_t usagePage = 0;
inline constexpr std::uint8_t logicalMinimum = 1;
inline constexpr std::uint8_t logicalMaximum = 2;
inline constexpr std::uint8_t reportSize = 7;
inline constexpr std::uint8_t reportId = 8;
inline constexpr std::uint8_t reportCount = 9;
inline constexpr std::uint8_t push = 10;
inline constexpr std::uint8_t pop = 11;

inline constexpr std::uint8_t usage = 0;
inline constexpr std::uint8_t usageMinimum = 1;
inline constexpr std::uint8_t usageMaximum = 2;
inline constexpr std::uint8_t delimiter = 10;
} // namespace HidTag

struct HidItem
{
    HidItemKind kind = HidItemKind::reserved;
    std::uint8_t tag = 0;
    std::uint8_t size = 0; // bytes of the value: 0, 1, 2 or 4
    std::uint32_t value = 0;

    // The value with the sign that its highest bit is.
    [[nodiscard]] std::int64_t signedValue() const
    {
        switch (size) {
        case 1:
            return static_cast<std::int8_t>(value);
        case 2:
            return static_cast<std::int16_t>(value);
        default:
            return static_cast<std::int32_t>(value);
        }
    }
};

// Walks through the bytes, which it does not own.
class HidItems
{
public:
    explicit HidItems(std::span<const std::byte> bytes)
        : rest_(bytes)
    {}

    // The next short item; long ones are skipped. Nothing at the end, and where an item is cut off.
    [[nodiscard]] std::optional<HidItem> next();

    [[nodiscard]] bool isAtEnd() const { return rest_.empty(); }

private:
    [[nodiscard]] bool skipLongItems();

    std::span<const std::byte> rest_;
};

} // namespace platform

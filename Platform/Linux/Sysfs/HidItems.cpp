#include "Platform/Linux/Sysfs/HidItems.h"

#include <array>

namespace platform {

namespace {

constexpr std::uint8_t longItem = 0xFE;
constexpr std::size_t longHeader = 3; // the prefix, the size of the data, the tag
constexpr std::array<std::uint8_t, 4> sizes{0, 1, 2, 4};

std::uint8_t number(std::byte byte)
{
    return std::to_integer<std::uint8_t>(byte);
}

} // namespace

std::optional<HidItem> HidItems::next()
{
    if (!skipLongItems() || rest_.empty()) {
        return std::nullopt;
    }
    const auto prefix = number(rest_.front());
    const auto size = sizes[prefix & 3U];
    if (rest_.size() <= size) {
        return std::nullopt;
    }
    HidItem item{static_cast<HidItemKind>((prefix >> 2U) & 3U), static_cast<std::uint8_t>(prefix >> 4U),
                 size};
    for (std::size_t index = size; index > 0; --index) {
        item.value = item.value << 8U | number(rest_[index]);
    }
    rest_ = rest_.subspan(std::size_t{1} + size);
    return item;
}

// False where one is cut off.
bool HidItems::skipLongItems()
{
    while (!rest_.empty() && number(rest_.front()) == longItem) {
        if (rest_.size() < longHeader || rest_.size() - longHeader < number(rest_[1])) {
            return false;
        }
        rest_ = rest_.subspan(longHeader + number(rest_[1]));
    }
    return true;
}

} // namespace platform

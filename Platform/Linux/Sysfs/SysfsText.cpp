#include "Platform/Linux/Sysfs/SysfsText.h"

#include <charconv>
#include <cmath>

namespace platform {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

// What is before the separator, which goes too.
std::string_view takeUpTo(char separator, std::string_view &text)
{
    const auto end = text.find(separator);
    const auto part = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return part;
}

} // namespace

std::string_view trimmedText(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    const auto first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::optional<double> numberInText(std::string_view text)
{
    text = trimmedText(text);
    double number = 0;
    const auto *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

bool numbersInText(std::string_view text, std::span<double> numbers)
{
    text = trimmedText(text);
    if (!text.starts_with('(') || !text.ends_with(')')) {
        return false;
    }
    text = text.substr(1);
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        const auto number = numberInText(takeUpTo(index + 1 < numbers.size() ? ',' : ')', text));
        if (!number) {
            return false;
        }
        numbers[index] = *number;
    }
    return text.empty();
}

} // namespace platform

// Numbers in the texts of the kernel's attributes. Any thread.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace platform {

// The text up to its first zero byte, without the white space around it.
[[nodiscard]] std::string_view trimmedText(std::string_view text);

// The number that the text is, in the kernel's notation whatever the locale: "-12", "0.000598". Nothing where
// it is anything else, or not finite.
[[nodiscard]] std::optional<double> numberInText(std::string_view text);

// The numbers of "(1,-2,3)" into `numbers`. False where it has not exactly so many; what `numbers` holds is
// of no use then.
[[nodiscard]] bool numbersInText(std::string_view text, std::span<double> numbers);

} // namespace platform

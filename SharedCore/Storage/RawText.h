// Enumerations whose cases are stored as texts.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace sharedcore {

// To be specialised for such an enumeration: `static constexpr std::array cases{std::pair{...}, ...}` holds
// every case, in declared order, with its text.
template <class Enumeration> struct RawTexts;

template <class Enumeration>
concept HasRawTexts = std::is_enum_v<Enumeration> && requires
{
    RawTexts<Enumeration>::cases.size();
};

// REQUIRES: it is one of the cases.
template <HasRawTexts Enumeration> constexpr std::string_view rawText(Enumeration value)
{
    const auto &cases = RawTexts<Enumeration>::cases;
    return std::ranges::find(cases, value, [](const auto &each) { return each.first; })->second;
}

// The case whose text is exactly this one; nothing for any other text.
template <HasRawTexts Enumeration> constexpr std::optional<Enumeration> caseOfRawText(std::string_view text)
{
    for (const auto &[value, raw] : RawTexts<Enumeration>::cases) {
        if (raw == text) {
            return value;
        }
    }
    return std::nullopt;
}

} // namespace sharedcore

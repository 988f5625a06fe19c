// The identity of a persistent record.
#pragma once

#include "Platform/ObjectRow.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <string_view>

namespace sharedcore {

// Given to a record when it is made, and its own for good: before and after it is saved, in every process
// that fetches it. Any thread.
struct PersistentIdentifier
{
    std::string_view entityName; // of static storage
    platform::ObjectKey key;

    // One that nobody has. Later ones of a process are greater than earlier ones.
    [[nodiscard]] static PersistentIdentifier make(std::string_view entityName);

    auto operator<=>(const PersistentIdentifier &) const = default;
};

} // namespace sharedcore

template <> struct std::hash<sharedcore::PersistentIdentifier>
{
    std::size_t operator()(const sharedcore::PersistentIdentifier &identifier) const noexcept;
};

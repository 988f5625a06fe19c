// The identity of a persistent record.
#pragma once

#include "Platform/ObjectRow.h"

#include <cstddef>
#include <functional>
#include <string_view>
#include <tuple>

namespace sharedcore {

// Given to a record when it is made, and its own for good: before and after it is saved, in every process
// that fetches it. Any thread.
struct PersistentIdentifier
{
    std::string_view entityName; // of static storage
    platform::ObjectKey key;

    // One that nobody has. Later ones of a process are greater than earlier ones.
    [[nodiscard]] static PersistentIdentifier make(std::string_view entityName);

    bool operator==(const PersistentIdentifier &) const = default;
    bool operator<(const PersistentIdentifier &other) const
    {
        return std::tie(entityName, key) < std::tie(other.entityName, other.key);
    }
};

} // namespace sharedcore

template <> struct std::hash<sharedcore::PersistentIdentifier>
{
    std::size_t operator()(const sharedcore::PersistentIdentifier &identifier) const noexcept;
};

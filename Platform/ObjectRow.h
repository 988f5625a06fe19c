// A row of an object store.
#pragma once

#include "Platform/ObjectSchema.h"

#include <array>
#include <cstdint>
#include <vector>

namespace platform {

// What tells a row from all others of its entity, in every store, for good. Given by whoever makes the row;
// keys are ordered byte by byte. Keys that grow with time keep a store's pages filled in order.
struct ObjectKey
{
    std::array<std::uint8_t, 16> bytes{};

    bool operator==(const ObjectKey &) const = default;
    bool operator<(const ObjectKey &other) const { return bytes < other.bytes; }
};

struct ObjectRow
{
    ObjectKey key;
    std::vector<ColumnValue> values; // in the order of the entity's columns

    bool operator==(const ObjectRow &) const = default;
};

} // namespace platform

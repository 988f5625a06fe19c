// What one save does to an object store. Plain values, any thread.
#pragma once

#include "Platform/ObjectRow.h"
#include "Platform/ObjectSchema.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace platform {

struct ObjectInsertion
{
    std::size_t entity = 0; // its place in the schema
    ObjectRow row;
};

// New values of some columns, by their places; the others stay as they are in the store.
struct ObjectUpdate
{
    std::size_t entity = 0;
    ObjectKey key;
    std::vector<std::pair<std::size_t, ColumnValue>> values;
};

struct ObjectDeletion
{
    std::size_t entity = 0;
    ObjectKey key;
};

// Done in this order.
struct ObjectChanges
{
    std::vector<ObjectInsertion> insertions;
    std::vector<ObjectUpdate> updates;
    std::vector<ObjectDeletion> deletions;
};

// The places exist, and the values fit their columns.
[[nodiscard]] bool isSound(const ObjectChanges &changes, const ObjectSchema &schema);

} // namespace platform

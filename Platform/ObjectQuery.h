// Which rows of an object store are wanted, and in what order. Plain values, any thread.
#pragma once

#include "Platform/ObjectRow.h"
#include "Platform/ObjectSchema.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace platform {

// Texts are compared byte by byte. Only `equal` and `notEqual` hold for an absent value, which is equal to
// an absent one and to no other.
enum class Comparison { equal, notEqual, less, lessOrEqual, greater, greaterOrEqual, contains };

struct Condition
{
    std::size_t column = 0; // its place in the entity
    Comparison comparison = Comparison::equal;
    ColumnValue value; // text for `contains`
};

// Absent values are less than all others.
struct Ordering
{
    std::size_t column = 0;
    bool isDescending = false;
};

struct ObjectQuery
{
    std::size_t entity = 0;            // its place in the schema
    std::vector<Condition> conditions; // all of them have to hold
    // The first one that tells two rows apart decides; the key does where none can, in the direction of the
    // last ordering, and upwards where there is none.
    std::vector<Ordering> orderings;
    std::optional<std::size_t> limit; // at most so many of the first
};

// The places exist, and the values have the types of their columns; a number is not NaN.
[[nodiscard]] bool isSound(const ObjectQuery &query, const ObjectSchema &schema);

// Below, REQUIRES: the query is sound, and the rows fit its entity.
[[nodiscard]] bool matches(const ObjectQuery &query, const std::vector<ColumnValue> &values);
[[nodiscard]] bool comesBefore(const ObjectQuery &query, const ObjectRow &left, const ObjectRow &right);
// Sorts the rows as the query wants them and drops those beyond its limit.
void arrange(const ObjectQuery &query, std::vector<ObjectRow> &rows);

} // namespace platform

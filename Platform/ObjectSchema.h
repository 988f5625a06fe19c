// What an object store keeps: entities, which are its tables, with typed columns. Plain values, any thread.
#pragma once

#include "Foundation/ReferenceDate.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace platform {

enum class ColumnType {
    text,
    wholeNumber, // signed, 64 bits
    number,      // double precision, never NaN; zero comes back without its sign
    boolean,
    date,
};

// In bytes. What is longer does not fit into a column.
inline constexpr std::size_t longestText = 100'000'000;

// Absent, or a value of the column's type. Text is kept byte for byte. A date is kept as seconds since the
// reference date, and so to the microsecond for 70 years around it.
using ColumnValue = std::variant<std::monostate, std::string, std::int64_t, double, bool, foundation::Date>;

struct Column
{
    std::string name;
    ColumnType type = ColumnType::text;
    bool isOptional = false;
    // What rows get that were saved before there was this column.
    ColumnValue initialValue;

    bool operator==(const Column &) const = default;
};

struct Entity
{
    std::string name;
    std::vector<Column> columns;

    bool operator==(const Entity &) const = default;
};

struct ObjectSchema
{
    // 1 or more; a store that was written with a greater one is not opened.
    std::int32_t version = 1;
    std::vector<Entity> entities;

    bool operator==(const ObjectSchema &) const = default;
};

// The column that an entity's table has beside those of the schema, with the row's key.
inline constexpr auto keyColumnName = "persistentIdentifier";

// The value may stand in the column.
[[nodiscard]] bool fits(const Column &column, const ColumnValue &value);
// There is a fitting value for every column.
[[nodiscard]] bool fit(const Entity &entity, const std::vector<ColumnValue> &values);

// Names are not empty, and unique among entities and among the columns of each, whatever the case of their
// letters; every entity has a column, none has the key's name; initial values fit.
[[nodiscard]] bool isSound(const ObjectSchema &schema);

} // namespace platform

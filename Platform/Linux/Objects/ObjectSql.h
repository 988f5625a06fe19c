// An entity's table in SQL.
#pragma once

#include "Platform/ObjectQuery.h"
#include "Platform/ObjectSchema.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// A name as SQL wants it, whatever its letters.
[[nodiscard]] std::string quotedName(std::string_view name);

// "TEXT", "INTEGER" or "REAL".
[[nodiscard]] const char *storageClassOf(ColumnType type);
// What an absent value is replaced by in a column that allows none.
[[nodiscard]] const char *zeroOf(ColumnType type);
[[nodiscard]] std::string definitionOf(const Column &column);
[[nodiscard]] std::string tableDefinitionOf(const Entity &entity);

// The columns that the store keeps in order: whoever keeps a history asks for its newest rows, and without an
// index that takes 7 ms of 100,000 rows.
[[nodiscard]] bool isIndexed(const Column &column);
[[nodiscard]] std::string indexNameOf(const Entity &entity, const Column &column);
[[nodiscard]] std::string indexDefinitionOf(const Entity &entity, const Column &column);

// Below: the parameters are in the order of the text. The key comes first in an insertion and in the rows of
// a selection, and last in an update or a deletion.
[[nodiscard]] std::string insertionInto(const Entity &entity);
[[nodiscard]] std::string updateOf(const Entity &entity, const std::vector<std::size_t> &places);
[[nodiscard]] std::string deletionFrom(const Entity &entity);
[[nodiscard]] std::string selectionFrom(const Entity &entity, const ObjectQuery &query);

} // namespace platform

// The values of rows in statements. Throws SQLite::Exception.
#pragma once

#include "Platform/ObjectRow.h"
#include "Platform/ObjectSchema.h"

#include <SQLiteCpp/Statement.h>

#include <optional>

namespace platform {

// Parameters count from 1. Texts and keys are not copied: they have to live until the statement has run.
void bind(SQLite::Statement &statement, int parameter, const ColumnValue &value);
void bind(SQLite::Statement &statement, int parameter, const ObjectKey &key);

// The row that a selection stands at; nothing where it does not fit the entity.
[[nodiscard]] std::optional<ObjectRow> rowIn(SQLite::Statement &statement, const Entity &entity);

} // namespace platform

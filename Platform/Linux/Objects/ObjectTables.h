// The tables of a store's file.
#pragma once

#include "Platform/Linux/Sqlite/SqliteConnection.h"
#include "Platform/ObjectSchema.h"

namespace platform {

// True where all tables, columns and indexes of the schema are there. Throws ObjectRefusal where the file is
// newer than the schema or has tables of another making.
[[nodiscard]] bool areTablesComplete(SqliteConnection &connection, const ObjectSchema &schema);

// Makes what is missing. Throws as above, before it touches anything. REQUIRES: a transaction is running.
void completeTables(SqliteConnection &connection, const ObjectSchema &schema);

} // namespace platform

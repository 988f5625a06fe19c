#include "Platform/Linux/Sqlite/SqliteStatus.h"

#include <sqlite3.h>

namespace platform {

namespace {

constexpr int primaryCodeBits = 0xFF;

} // namespace

SqliteStatus statusOf(int code)
{
    switch (code & primaryCodeBits) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return SqliteStatus::busy;
    case SQLITE_FULL:
        return SqliteStatus::full;
    case SQLITE_READONLY:
        return SqliteStatus::readOnly;
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return SqliteStatus::denied;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return SqliteStatus::damaged;
    default:
        return SqliteStatus::failed;
    }
}

} // namespace platform

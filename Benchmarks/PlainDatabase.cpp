#include "Benchmarks/PlainDatabase.h"

#include "Benchmarks/RecordContent.h"
#include "Benchmarks/Report.h"

#include <sqlite3.h>

#include <memory>
#include <string>

namespace benchmarks {

namespace {

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Statement prepare(sqlite3 *database, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    return {statement, sqlite3_finalize};
}

void bind(sqlite3_stmt *statement, int parameter, const std::string &text)
{
    sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()), nullptr);
}

} // namespace

PlainDatabase::PlainDatabase(const std::filesystem::path &file)
{
    require(sqlite3_open(file.c_str(), &database_) == SQLITE_OK);
    execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
            "CREATE TABLE item (content TEXT NOT NULL, timestamp REAL NOT NULL, appSource TEXT,"
            " isPinned INTEGER NOT NULL) STRICT");
}

PlainDatabase::~PlainDatabase()
{
    sqlite3_close(database_);
}

void PlainDatabase::insert(int rowCount)
{
    execute("BEGIN IMMEDIATE");
    const auto statement = prepare(database_, "INSERT INTO item VALUES (?, ?, ?, ?)");
    const std::string source = recordSource;
    for (int row = 0; row < rowCount; ++row) {
        const auto content = recordContent(row);
        bind(statement.get(), 1, content);
        sqlite3_bind_double(statement.get(), 2, recordSeconds(row));
        bind(statement.get(), 3, source);
        sqlite3_bind_int(statement.get(), 4, 0);
        require(sqlite3_step(statement.get()) == SQLITE_DONE);
        sqlite3_reset(statement.get());
    }
    execute("COMMIT");
}

int PlainDatabase::readNewest(int rowCount)
{
    const auto statement = prepare(database_, "SELECT * FROM item ORDER BY timestamp DESC LIMIT ?");
    sqlite3_bind_int(statement.get(), 1, rowCount);
    int count = 0;
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        ++count;
    }
    return count;
}

void PlainDatabase::execute(const char *sql)
{
    require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

void PlainDatabase::require(bool isDone)
{
    if (!isDone) {
        throw NotMeasured(std::string("SQLite says: ") + sqlite3_errmsg(database_));
    }
}

} // namespace benchmarks

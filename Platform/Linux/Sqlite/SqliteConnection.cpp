#include "Platform/Linux/Sqlite/SqliteConnection.h"

#include <sqlite3.h>
#include <unistd.h>

#include <thread>

namespace platform {

SqliteStatement::~SqliteStatement()
{
    statement_.tryReset();
    statement_.clearBindings();
}

SqliteConnection::SqliteConnection(const std::string &name, int flags)
    : database_(name, flags)
{
    patience_.random = static_cast<unsigned>(getpid());
    sqlite3_extended_result_codes(database_.getHandle(), 1);
    sqlite3_busy_handler(database_.getHandle(), waitForOthers, &patience_);
}

// SQLite's own handler waits up to 100 ms between two looks, so that of several writers one can starve.
int SqliteConnection::waitForOthers(void *patience, int round)
{
    constexpr unsigned shortest = 200;
    constexpr unsigned spread = 2000;
    auto &self = *static_cast<Patience *>(patience);
    const auto now = std::chrono::steady_clock::now();
    if (round == 0) {
        self.deadline = now + longestSqliteWait;
    }
    self.random = self.random * 1'664'525U + 1'013'904'223U;
    std::this_thread::sleep_for(std::chrono::microseconds(shortest + (self.random >> 8U) % spread));
    return now < self.deadline ? 1 : 0;
}

SqliteStatement SqliteConnection::statement(std::string_view sql)
{
    auto found = statements_.find(sql);
    if (found == statements_.end()) {
        const std::string text(sql);
        found = statements_.try_emplace(text, database_, text).first;
    }
    return SqliteStatement(found->second);
}

void SqliteConnection::transaction(const std::function<void()> &work)
{
    database_.exec("BEGIN IMMEDIATE");
    try {
        work();
        database_.exec("COMMIT");
    } catch (...) {
        database_.tryExec("ROLLBACK"); // a full disk may have rolled it back already
        throw;
    }
}

std::string SqliteConnection::textOf(const char *sql)
{
    return database_.execAndGet(sql).getString();
}

int SqliteConnection::numberOf(const char *sql)
{
    return database_.execAndGet(sql).getInt();
}

bool SqliteConnection::hasMoved() const
{
    int moved = 0;
    sqlite3_file_control(database_.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return moved != 0;
}

void SqliteConnection::setLeavesFilesAlone(bool leaves) const
{
    sqlite3_db_config(database_.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, leaves ? 1 : 0, // NOLINT
                      nullptr);
}

} // namespace platform

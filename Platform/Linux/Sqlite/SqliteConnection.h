// An open database with its prepared statements. Throws SQLite::Exception.
#pragma once

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace platform {

// Waits at most so long for others, in each call: on a slow disk several may be before it.
inline constexpr std::chrono::seconds longestSqliteWait(5);

// A prepared statement in use. Ends what it reads, and forgets what was bound to it, when it goes.
class SqliteStatement
{
public:
    explicit SqliteStatement(SQLite::Statement &statement)
        : statement_(statement)
    {}
    SqliteStatement(const SqliteStatement &) = delete;
    SqliteStatement &operator=(const SqliteStatement &) = delete;
    ~SqliteStatement();

    SQLite::Statement *operator->() const { return &statement_; }
    SQLite::Statement &operator*() const { return statement_; }

private:
    SQLite::Statement &statement_;
};

// One thread at a time.
class SqliteConnection
{
public:
    // `name` is a path, or a URI where the flags say so.
    SqliteConnection(const std::string &name, int flags);
    SqliteConnection(const SqliteConnection &) = delete;
    SqliteConnection &operator=(const SqliteConnection &) = delete;
    ~SqliteConnection() = default;

    [[nodiscard]] SQLite::Database &database() { return database_; }

    // The statement of that text, prepared at its first use and kept. REQUIRES: it is not in use already.
    [[nodiscard]] SqliteStatement statement(std::string_view sql);

    // Runs the work in a write transaction: all of it is kept, on the disk when this returns, or nothing.
    void transaction(const std::function<void()> &work);

    // The first column of the first row. REQUIRES: there is one.
    [[nodiscard]] std::string textOf(const char *sql);
    [[nodiscard]] int numberOf(const char *sql);

    // Another file lies at the path now, or none.
    [[nodiscard]] bool hasMoved() const;
    // Whether the files stay as they are when it is closed; otherwise the last connection writes the log back
    // into the database, and removes it.
    void setLeavesFilesAlone(bool leaves) const;

private:
    struct Patience
    {
        std::chrono::steady_clock::time_point deadline;
        unsigned random = 0;
    };
    static int waitForOthers(void *patience, int round);

    Patience patience_;
    SQLite::Database database_;
    std::map<std::string, SQLite::Statement, std::less<>> statements_;
};

} // namespace platform

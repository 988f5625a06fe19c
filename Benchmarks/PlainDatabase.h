// The yardstick of persistent records: the same values through SQLite's own interface and nothing else.
#pragma once

#include <filesystem>

struct sqlite3;

namespace benchmarks {

// A table of four columns, without a key of its own or an index. Throws NotMeasured.
class PlainDatabase
{
public:
    explicit PlainDatabase(const std::filesystem::path &file);
    PlainDatabase(const PlainDatabase &) = delete;
    PlainDatabase &operator=(const PlainDatabase &) = delete;
    ~PlainDatabase();

    // In one transaction, by a prepared statement.
    void insert(int rowCount);
    // Reads the rows with the highest timestamps; gives how many.
    [[nodiscard]] int readNewest(int rowCount);

private:
    void execute(const char *sql);
    void require(bool isDone);

    sqlite3 *database_ = nullptr;
};

} // namespace benchmarks

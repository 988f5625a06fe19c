// A database of numbers in a folder of its own.
#pragma once

#include "Platform/Linux/Sqlite/SqliteFile.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace platform {

class SqliteFileTest : public testing::Test
{
protected:
    [[nodiscard]] std::filesystem::path folder() const { return temporary_.path() / "store"; }
    [[nodiscard]] std::filesystem::path path() const { return folder() / "numbers.sqlite"; }

    [[nodiscard]] static SqliteFormat format()
    {
        return {1,
                [](SqliteConnection &connection, int) {
                    connection.database().exec("CREATE TABLE number (value INTEGER NOT NULL)");
                },
                "SELECT value FROM number"};
    }

    static SqliteStatus insert(SqliteFile &file, int value)
    {
        return file.run([value](SqliteConnection &connection) {
            const auto statement = connection.statement("INSERT INTO number VALUES (?)");
            statement->bind(1, value);
            statement->exec();
        });
    }

    static std::multiset<int> values(SqliteFile &file)
    {
        std::multiset<int> found;
        const auto status = file.run([&found](SqliteConnection &connection) {
            const auto statement = connection.statement("SELECT value FROM number");
            while (statement->executeStep()) {
                found.insert(statement->getColumn(0).getInt());
            }
        });
        return status == SqliteStatus::done ? found : std::multiset<int>{-1};
    }

    // Of the files in the folder.
    [[nodiscard]] std::set<std::string> names() const
    {
        std::set<std::string> found;
        for (const auto &entry : std::filesystem::directory_iterator(folder())) {
            found.insert(entry.path().filename());
        }
        return found;
    }

    // Of the files that begin with the database's name and tell of damage.
    [[nodiscard]] std::set<std::string> setAsideNames() const
    {
        auto found = names();
        std::erase_if(found,
                      [](const std::string &name) { return !name.starts_with("numbers.sqlite.damaged-2"); });
        return found;
    }

    static std::string content(const std::filesystem::path &file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static void write(const std::filesystem::path &file, const std::string &bytes)
    {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    }

private:
    testsupport::TemporaryFolder temporary_;
};

} // namespace platform

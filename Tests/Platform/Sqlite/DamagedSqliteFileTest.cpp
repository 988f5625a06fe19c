#include "Tests/Platform/Sqlite/SqliteFileTest.h"

#include <SQLiteCpp/Exception.h>

#include <thread>

namespace platform {

namespace {

namespace fs = std::filesystem;

class DamagedSqliteFileTest : public SqliteFileTest
{
protected:
    void SetUp() override
    {
        SqliteFile file(path(), format());
        ASSERT_EQ(file.run([](SqliteConnection &connection) {
            connection.transaction([&connection] {
                for (int value = 0; value < 5000; ++value) {
                    const auto statement = connection.statement("INSERT INTO number VALUES (?)");
                    statement->bind(1, value);
                    statement->exec();
                }
            });
        }),
                  SqliteStatus::done);
    }
};

TEST_F(DamagedSqliteFileTest, SetsAsideWhatIsNoDatabase)
{
    const std::string garbage(20'000, 'x');
    write(path(), garbage);
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    EXPECT_EQ(values(file), (std::multiset{1}));
    const auto kept = setAsideNames();
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(content(folder() / *kept.begin()), garbage);
}

TEST_F(DamagedSqliteFileTest, SetsAsideWhatWasCutShort)
{
    const auto whole = content(path());
    for (const auto length : {whole.size() / 2, whole.size() - 1, std::size_t{100}, std::size_t{1}}) {
        write(path(), whole.substr(0, length));
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done) << length;
        EXPECT_EQ(values(file), (std::multiset{1})) << length;
    }
    EXPECT_EQ(setAsideNames().size(), 4U);
}

TEST_F(DamagedSqliteFileTest, SetsAsideWhatProvesDamagedInUse)
{
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    int attempts = 0;
    EXPECT_EQ(file.run([&attempts](SqliteConnection &) {
        if (++attempts == 1) {
            throw SQLite::Exception("as SQLite says it", 11);
        }
    }),
              SqliteStatus::done);
    EXPECT_EQ(attempts, 2);
    EXPECT_EQ(values(file), std::multiset<int>());
    // With the log, which holds what was written last.
    const auto kept = setAsideNames();
    ASSERT_EQ(kept.size(), 3U);
    fs::rename(folder() / *kept.begin(), folder() / "rescued");
    fs::rename(folder() / (*kept.begin() + "-wal"), folder() / "rescued-wal");
    SqliteFile rescued(folder() / "rescued", format());
    EXPECT_EQ(values(rescued).size(), 5001U);
}

TEST_F(DamagedSqliteFileTest, WritesOnceMoreWhereTheFileWasSetAsideMeanwhile)
{
    // As another process does it that has found damage: the log first, then the database.
    const auto log = path().string() + "-wal";
    for (const int renames : {1, 2}) {
        SqliteFile file(path(), format());
        int attempts = 0;
        EXPECT_EQ(file.run([&](SqliteConnection &connection) {
            connection.database().exec("INSERT INTO number VALUES (" + std::to_string(10'000 + renames) +
                                       ")");
            if (++attempts == 1) {
                fs::rename(log, folder() / "moved-wal");
            }
            if (attempts == 1 && renames == 2) {
                fs::rename(path(), folder() / "moved");
            }
        }),
                  SqliteStatus::done);
        EXPECT_EQ(attempts, 2);
        SqliteFile other(path(), format());
        EXPECT_EQ(values(other).count(10'000 + renames), 1U);
    }
}

TEST_F(DamagedSqliteFileTest, KeepsTheLogOfADatabaseThatWasEmptied)
{
    write(path(), "");
    write(path().string() + "-wal", "the last that is left");
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    const auto kept = setAsideNames();
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(content(folder() / *kept.rbegin()), "the last that is left");
}

TEST_F(DamagedSqliteFileTest, SetsAsideADatabaseOfSomethingElse)
{
    fs::remove(path());
    {
        SQLite::Database other(path().string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        other.exec("CREATE TABLE other (value)");
    }
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    EXPECT_EQ(setAsideNames().size(), 1U);
}

TEST_F(DamagedSqliteFileTest, SetsAsideADatabaseWithoutItsTable)
{
    {
        SQLite::Database database(path().string(), SQLite::OPEN_READWRITE);
        database.exec("DROP TABLE number");
    }
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    EXPECT_EQ(setAsideNames().size(), 1U);
}

TEST_F(DamagedSqliteFileTest, KeepsEveryDamagedFileOfTheSameSecond)
{
    for (int count = 1; count <= 5; ++count) {
        write(path(), std::string(5000, static_cast<char>('0' + count)));
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done);
        EXPECT_EQ(setAsideNames().size(), static_cast<std::size_t>(count));
    }
}

TEST_F(DamagedSqliteFileTest, IsNoticedByThoseWhoHaveTheOldFileOpen)
{
    SqliteFile first(path(), format());
    SqliteFile second(path(), format());
    EXPECT_EQ(insert(first, 1), SqliteStatus::done);
    int attempts = 0;
    EXPECT_EQ(second.run([&attempts](SqliteConnection &) {
        if (++attempts == 1) {
            throw SQLite::Exception("as SQLite says it", 26);
        }
    }),
              SqliteStatus::done);
    EXPECT_EQ(insert(first, 2), SqliteStatus::done);
    EXPECT_EQ(values(second), (std::multiset{2}));
}

TEST_F(DamagedSqliteFileTest, IsReplacedOnceWhereManyFindItAtOnce)
{
    for (int round = 0; round < 20; ++round) {
        fs::remove_all(folder());
        write(path(), std::string(10'000, 'x'));
        std::vector<std::thread> threads;
        for (int value = 0; value < 8; ++value) {
            threads.emplace_back([this, value] {
                SqliteFile file(path(), format());
                EXPECT_EQ(insert(file, value), SqliteStatus::done);
            });
        }
        for (auto &thread : threads) {
            thread.join();
        }
        SqliteFile file(path(), format());
        EXPECT_EQ(values(file), (std::multiset{0, 1, 2, 3, 4, 5, 6, 7}));
        EXPECT_EQ(setAsideNames().size(), 1U);
    }
}

} // namespace

} // namespace platform

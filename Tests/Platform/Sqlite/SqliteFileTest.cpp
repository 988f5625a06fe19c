#include "Tests/Platform/Sqlite/SqliteFileTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path &file)
{
    struct stat status
    {};
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

// Root may do everything: for as long as this lives the process is another user, to whom the folder belongs.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const fs::path &folder)
    {
        constexpr uid_t user = 12'345;
        if (geteuid() == 0) {
            EXPECT_EQ(chown(folder.c_str(), user, user), 0);
            EXPECT_EQ(seteuid(user), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser &) = delete;
    OrdinaryUser &operator=(const OrdinaryUser &) = delete;
    ~OrdinaryUser() { EXPECT_EQ(seteuid(getuid()), 0); }
};

TEST_F(SqliteFileTest, KeepsWhatItAcknowledged)
{
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done);
        EXPECT_EQ(insert(file, 2), SqliteStatus::done);
    }
    SqliteFile again(path(), format());
    EXPECT_EQ(values(again), (std::multiset{1, 2}));
}

TEST_F(SqliteFileTest, TouchesNothingBeforeItsFirstUse)
{
    const SqliteFile file(path(), format());
    EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(SqliteFileTest, IsForTheUserAlone)
{
    const auto previous = umask(0);
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    umask(previous);
    EXPECT_EQ(modeOf(folder()), 0700U);
    const auto files = names();
    EXPECT_EQ(files, (std::set<std::string>{"numbers.sqlite", "numbers.sqlite-shm", "numbers.sqlite-wal"}));
    for (const auto &name : files) {
        EXPECT_EQ(modeOf(folder() / name), 0600U) << name;
    }
}

TEST_F(SqliteFileTest, ClosesAFolderAndAFileThatOthersCouldRead)
{
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    }
    chmod(folder().c_str(), 0755);
    chmod(path().c_str(), 0644);
    SqliteFile file(path(), format());
    EXPECT_EQ(values(file), (std::multiset{1}));
    EXPECT_EQ(modeOf(folder()), 0700U);
    EXPECT_EQ(modeOf(path()), 0600U);
}

TEST_F(SqliteFileTest, LeavesAFolderAloneThatUsersShare)
{
    fs::create_directory(folder());
    ASSERT_EQ(chmod(folder().c_str(), 01777), 0);
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 1), SqliteStatus::denied);
    EXPECT_EQ(modeOf(folder()), 0777U);
    EXPECT_TRUE(names().empty());
}

TEST_F(SqliteFileTest, SaysSoWhereItsFolderMayNotBeEntered)
{
    const OrdinaryUser user(folder().parent_path());
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    }
    for (const mode_t mode : {0000U, 0100U, 0200U, 0400U, 0600U}) {
        ASSERT_EQ(chmod(folder().c_str(), mode), 0);
        SqliteFile file(path(), format());
        EXPECT_NE(insert(file, 2), SqliteStatus::done) << mode;
    }
    ASSERT_EQ(chmod(folder().c_str(), 0700), 0);
    SqliteFile file(path(), format());
    EXPECT_EQ(values(file), (std::multiset{1}));
}

TEST_F(SqliteFileTest, IsReadInAFolderThatMayNotBeWritten)
{
    const OrdinaryUser user(folder().parent_path());
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 1), SqliteStatus::done);
    }
    ASSERT_EQ(chmod(folder().c_str(), 0500), 0);
    SqliteFile file(path(), format());
    EXPECT_EQ(insert(file, 2), SqliteStatus::readOnly);
    EXPECT_EQ(values(file), (std::multiset{1}));
    ASSERT_EQ(chmod(folder().c_str(), 0700), 0);
    EXPECT_EQ(insert(file, 3), SqliteStatus::done);
    EXPECT_EQ(values(file), (std::multiset{1, 3}));
}

TEST_F(SqliteFileTest, DoesNotRunTheStatementThatProbesIt)
{
    auto probed = format();
    probed.probe = "INSERT INTO number VALUES (7)";
    for (int count = 0; count < 2; ++count) {
        SqliteFile file(path(), probed);
        EXPECT_EQ(values(file), std::multiset<int>());
    }
}

TEST_F(SqliteFileTest, SynchronisesEachCommitOfItsLog)
{
    SqliteFile file(path(), format());
    EXPECT_EQ(file.run([](SqliteConnection &connection) {
        EXPECT_EQ(connection.textOf("PRAGMA journal_mode"), "wal");
        EXPECT_EQ(connection.numberOf("PRAGMA synchronous"), 2);
    }),
              SqliteStatus::done);
}

TEST_F(SqliteFileTest, KeepsNothingOfATransactionThatFails)
{
    SqliteFile file(path(), format());
    const auto status = file.run([](SqliteConnection &connection) {
        connection.transaction([&connection] {
            connection.database().exec("INSERT INTO number VALUES (1)");
            connection.database().exec("INSERT INTO number VALUES (NULL)");
        });
    });
    EXPECT_EQ(status, SqliteStatus::failed);
    EXPECT_EQ(values(file), std::multiset<int>());
    EXPECT_EQ(insert(file, 2), SqliteStatus::done);
}

TEST_F(SqliteFileTest, BringsAnOlderFileUpToDate)
{
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 7), SqliteStatus::done);
    }
    auto newer = format();
    newer.version = 3;
    newer.upgrade = [](SqliteConnection &connection, int olderVersion) {
        EXPECT_EQ(olderVersion, 1);
        connection.database().exec("ALTER TABLE number ADD COLUMN name TEXT NOT NULL DEFAULT 'none'");
    };
    SqliteFile file(path(), newer);
    EXPECT_EQ(file.run([](SqliteConnection &connection) {
        EXPECT_EQ(connection.textOf("SELECT name FROM number"), "none");
        EXPECT_EQ(connection.numberOf("PRAGMA user_version"), 3);
    }),
              SqliteStatus::done);
}

TEST_F(SqliteFileTest, LeavesTheFileOfANewerProgramUntouched)
{
    auto newer = format();
    newer.version = 2;
    {
        SqliteFile file(path(), newer);
        EXPECT_EQ(insert(file, 7), SqliteStatus::done);
    }
    const auto before = content(path());
    {
        SqliteFile file(path(), format());
        EXPECT_EQ(insert(file, 8), SqliteStatus::newer);
        EXPECT_EQ(insert(file, 8), SqliteStatus::newer);
    }
    EXPECT_EQ(content(path()), before);
    EXPECT_EQ(names(), (std::set<std::string>{"numbers.sqlite"}));
    SqliteFile file(path(), newer);
    EXPECT_EQ(values(file), (std::multiset{7}));
}

TEST_F(SqliteFileTest, SharesTheFileWithOthers)
{
    SqliteFile first(path(), format());
    SqliteFile second(path(), format());
    EXPECT_EQ(insert(first, 1), SqliteStatus::done);
    EXPECT_EQ(insert(second, 2), SqliteStatus::done);
    EXPECT_EQ(values(first), (std::multiset{1, 2}));
    EXPECT_EQ(values(second), (std::multiset{1, 2}));
}

TEST_F(SqliteFileTest, GivesUpAfterAWhileWhereAnotherHoldsIt)
{
    SqliteFile first(path(), format());
    SqliteFile second(path(), format());
    EXPECT_EQ(insert(second, 1), SqliteStatus::done);
    EXPECT_EQ(first.run([&second](SqliteConnection &connection) {
        connection.transaction([&second] { EXPECT_EQ(insert(second, 2), SqliteStatus::busy); });
    }),
              SqliteStatus::done);
    EXPECT_EQ(insert(second, 3), SqliteStatus::done);
    EXPECT_EQ(values(first), (std::multiset{1, 3}));
}

} // namespace

} // namespace platform

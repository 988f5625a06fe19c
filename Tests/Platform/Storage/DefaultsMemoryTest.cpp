// What was read is kept in memory, and is never taken for what others have made of it since.

#include "Platform/Linux/Defaults/SqliteDefaultsStore.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/TemporaryFolder.h"

#include <SQLiteCpp/Exception.h>

#include <gtest/gtest.h>

namespace platform {

namespace {

using namespace std::string_literals;

class DefaultsMemoryTest : public testing::Test
{
protected:
    [[nodiscard]] std::filesystem::path folder() const { return temporary_.path() / "domain"; }
    [[nodiscard]] std::filesystem::path file() const { return folder() / "defaults.sqlite"; }

    // Reads until the value comes from memory, which takes some time after a write.
    void expectRemembered(const char *key)
    {
        EXPECT_TRUE(testsupport::eventually([&] {
            const auto first = store_.sharedValue(key);
            return first && first == store_.sharedValue(key);
        }));
    }

private:
    testsupport::TemporaryFolder temporary_;

protected:
    SqliteDefaultsStore store_{file()};
    SqliteDefaultsStore other_{file()};
};

TEST_F(DefaultsMemoryTest, GivesWayToEachWriteOfAnother)
{
    for (std::int64_t round = 0; round < 10; ++round) {
        EXPECT_TRUE(other_.setValue("key", round));
        EXPECT_EQ(store_.value("key"), PropertyValue(round));
        expectRemembered("key");
        EXPECT_EQ(store_.value("key"), PropertyValue(round));
    }
    EXPECT_TRUE(other_.remove("key"));
    EXPECT_EQ(store_.value("key"), std::nullopt);
}

TEST_F(DefaultsMemoryTest, GivesWayToAWriteOfItsOwn)
{
    EXPECT_TRUE(store_.setValue("key", "first"s));
    expectRemembered("key");
    EXPECT_TRUE(store_.setValue("key", "second"s));
    EXPECT_EQ(store_.value("key"), PropertyValue("second"s));
}

TEST_F(DefaultsMemoryTest, GivesWayToAKeyThatWasNotThere)
{
    EXPECT_TRUE(store_.setValue("key", "value"s));
    expectRemembered("key");
    EXPECT_EQ(store_.value("absent"), std::nullopt);
    EXPECT_TRUE(other_.setValue("absent", "there"s));
    EXPECT_EQ(store_.value("absent"), PropertyValue("there"s));
}

TEST_F(DefaultsMemoryTest, GivesWayWhereTheFileIsSetAside)
{
    EXPECT_TRUE(store_.setValue("key", "value"s));
    SqliteFile finder(file(), {1,
                               [](SqliteConnection &connection, int) {
                                   connection.database().exec(
                                       "CREATE TABLE entry (key TEXT PRIMARY KEY, value BLOB) WITHOUT ROWID");
                               },
                               {}});
    expectRemembered("key");
    int attempts = 0;
    static_cast<void>(finder.run([&attempts](SqliteConnection &) {
        if (++attempts == 1) {
            throw SQLite::Exception("as SQLite says it", 11);
        }
    }));
    EXPECT_EQ(store_.value("key"), std::nullopt);
    EXPECT_TRUE(store_.setValue("key", "fresh"s));
    EXPECT_EQ(other_.value("key"), PropertyValue("fresh"s));
}

TEST_F(DefaultsMemoryTest, GivesWayWhereTheFilesAreRemoved)
{
    EXPECT_TRUE(store_.setValue("key", "value"s));
    expectRemembered("key");
    std::filesystem::remove_all(folder());
    EXPECT_EQ(store_.value("key"), std::nullopt);
}

} // namespace

} // namespace platform

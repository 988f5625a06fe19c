// A disk that is full or read-only, files of somebody else's, and damage: the calls say so, and what was
// stored stays whole.

#include "Platform/Linux/Defaults/SqliteDefaultsStore.h"
#include "Tests/Support/PrivateMount.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>

namespace platform {

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class DefaultsBadDaysTest : public testing::Test
{
protected:
    [[nodiscard]] fs::path disk() const { return temporary_.path() / "disk"; }
    [[nodiscard]] fs::path file() const { return disk() / "domain" / "defaults.sqlite"; }
    [[nodiscard]] std::unique_ptr<DefaultsStore> open() const
    {
        return std::make_unique<SqliteDefaultsStore>(file());
    }

    static PropertyValue large(char letter) { return std::string(20'000, letter); }

    static std::string content(const fs::path &path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    testsupport::TemporaryFolder temporary_;
};

class DiskTest : public DefaultsBadDaysTest
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(testsupport::separateMounts());
        disk_.emplace(disk(), 400);
        ASSERT_TRUE(disk_->isMounted());
    }
    void TearDown() override { disk_.reset(); }

    std::optional<testsupport::SmallDisk> disk_;
};

TEST_F(DiskTest, KeepsTheOldValuesWhereItIsFull)
{
    const auto store = open();
    EXPECT_TRUE(store->setValue("key", large('a')));
    int count = 0;
    while (count < 1000 && store->setValue("filling " + std::to_string(count), large('b'))) {
        ++count;
    }
    ASSERT_GT(count, 0);
    ASSERT_LT(count, 1000); // it is full
    EXPECT_FALSE(store->setValue("key", large('c')));
    EXPECT_EQ(store->value("key"), large('a'));
    EXPECT_EQ(open()->value("key"), large('a'));
    EXPECT_EQ(open()->value("filling 0"), large('b'));
    EXPECT_EQ(store->value("filling " + std::to_string(count)), std::nullopt);
}

TEST_F(DiskTest, IsWrittenAgainOnceThereIsRoom)
{
    const auto filling = disk() / "filling";
    const auto store = open();
    EXPECT_TRUE(store->setValue("key", large('a')));
    std::ofstream(filling) << std::string(1'000'000, 'x');
    EXPECT_FALSE(store->setValue("key", large('b')));
    EXPECT_EQ(store->value("key"), large('a'));
    fs::remove(filling);
    EXPECT_TRUE(store->setValue("key", large('c')));
    EXPECT_EQ(open()->value("key"), large('c'));
}

TEST_F(DiskTest, BeginsLaterWhereItIsFullAtFirst)
{
    const auto filling = disk() / "filling";
    std::ofstream(filling) << std::string(1'000'000, 'x');
    const auto store = open();
    EXPECT_FALSE(store->setValue("key", "value"s));
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_FALSE(store->remove("key"));
    fs::remove(filling);
    EXPECT_TRUE(store->setValue("key", "value"s));
    EXPECT_EQ(open()->value("key"), PropertyValue("value"s));
}

TEST_F(DiskTest, IsReadWhereItCannotBeWritten)
{
    EXPECT_TRUE(open()->setValue("key", "value"s));
    ASSERT_TRUE(disk_->setReadOnly(true));
    const auto store = open();
    EXPECT_EQ(store->value("key"), PropertyValue("value"s));
    EXPECT_FALSE(store->setValue("key", "other"s));
    EXPECT_FALSE(store->remove("key"));
    EXPECT_EQ(store->value("key"), PropertyValue("value"s));
    ASSERT_TRUE(disk_->setReadOnly(false));
    EXPECT_TRUE(store->setValue("key", "other"s));
    EXPECT_EQ(open()->value("key"), PropertyValue("other"s));
}

TEST_F(DiskTest, IsReadWithTheLogThatAnEndedProcessLeft)
{
    const testsupport::TemporaryFolder elsewhere;
    SqliteDefaultsStore living(elsewhere.path() / "domain" / "defaults.sqlite");
    EXPECT_TRUE(living.setValue("key", "value"s));
    fs::copy(elsewhere.path() / "domain", file().parent_path()); // as if the process ended here
    ASSERT_GT(fs::file_size(file().string() + "-wal"), 0U);
    ASSERT_TRUE(disk_->setReadOnly(true));
    EXPECT_EQ(open()->value("key"), PropertyValue("value"s));
    EXPECT_FALSE(open()->setValue("key", "other"s));
}

TEST_F(DiskTest, HasNothingWhereItCannotBeWrittenAndNothingWasThere)
{
    ASSERT_TRUE(disk_->setReadOnly(true));
    const auto store = open();
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_FALSE(store->setValue("key", "value"s));
    EXPECT_FALSE(store->remove("key"));
}

TEST_F(DiskTest, KeepsADamagedFileThatCannotBeSetAside)
{
    fs::create_directories(file().parent_path());
    std::ofstream(file()) << std::string(10'000, 'x');
    ASSERT_TRUE(disk_->setReadOnly(true));
    const auto store = open();
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_FALSE(store->setValue("key", "value"s));
    ASSERT_TRUE(disk_->setReadOnly(false));
    EXPECT_TRUE(store->setValue("key", "value"s));
}

TEST_F(DiskTest, LeavesTheFileOfAnotherUserAlone)
{
    EXPECT_TRUE(open()->setValue("key", "value"s));
    ASSERT_TRUE(testsupport::giveToAnotherUser(file()));
    const auto before = content(file());
    const auto store = open();
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_FALSE(store->setValue("key", "other"s));
    EXPECT_FALSE(store->remove("key"));
    EXPECT_EQ(content(file()), before);
}

TEST_F(DefaultsBadDaysTest, ReadADamagedValueAsNothing)
{
    const auto store = open();
    EXPECT_TRUE(store->setValue("key", "value"s));
    SqliteFile raw(file(), {1, {}, {}});
    EXPECT_EQ(raw.run([](SqliteConnection &connection) {
        connection.database().exec("UPDATE entry SET value = x'53FF'");
    }),
              SqliteStatus::done);
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_TRUE(store->setValue("key", "again"s));
    EXPECT_EQ(store->value("key"), PropertyValue("again"s));
}

TEST_F(DefaultsBadDaysTest, BeginAFreshFileForADamagedOneAndDeleteNothing)
{
    EXPECT_TRUE(open()->setValue("key", "value"s));
    const std::string garbage(10'000, 'x');
    std::ofstream(file(), std::ios::trunc) << garbage;
    const auto store = open();
    EXPECT_EQ(store->value("key"), std::nullopt);
    EXPECT_TRUE(store->setValue("key", "value"s));
    int kept = 0;
    for (const auto &entry : fs::directory_iterator(file().parent_path())) {
        kept += content(entry.path()) == garbage ? 1 : 0;
    }
    EXPECT_EQ(kept, 1);
}

TEST_F(DefaultsBadDaysTest, FailWhereSomethingElseIsInTheWay)
{
    fs::create_directories(file());
    EXPECT_FALSE(open()->setValue("key", "value"s));
    EXPECT_EQ(open()->value("key"), std::nullopt);
    fs::remove_all(file());
    ASSERT_EQ(mkfifo(file().c_str(), 0600), 0); // which would wait for a reader
    EXPECT_FALSE(open()->setValue("key", "value"s));
    fs::remove(file());
    fs::create_symlink("/dev/null", file());
    EXPECT_FALSE(open()->setValue("key", "value"s));
    fs::remove_all(file().parent_path());
    std::ofstream(file().parent_path()) << "a file";
    EXPECT_FALSE(open()->setValue("key", "value"s));
    EXPECT_EQ(content(file().parent_path()), "a file");
}

} // namespace

} // namespace platform

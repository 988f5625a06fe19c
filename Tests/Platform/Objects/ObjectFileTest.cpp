#include "Tests/Platform/Objects/ObjectStoreTest.h"
#include "Tests/Support/PrivateMount.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <sys/stat.h>

#include <fstream>
#include <map>

namespace platform {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

mode_t modeOf(const fs::path &file)
{
    struct stat status
    {};
    return stat(file.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

std::map<std::string, std::string> contentsOf(const fs::path &folder)
{
    std::map<std::string, std::string> contents;
    for (const auto &entry : fs::directory_iterator(folder)) {
        contents[entry.path().filename()] = contentOf(entry.path());
    }
    return contents;
}

ObjectSchema olderSchema(std::int32_t version)
{
    auto schema = noteSchema(version);
    schema.entities.front().columns.pop_back();
    return schema;
}

class ObjectFileTest : public testing::Test
{
protected:
    std::unique_ptr<ObjectStore> open(const ObjectSchema &schema = noteSchema())
    {
        auto opened = place_.open(schema);
        EXPECT_EQ(opened.status, StoreStatus::done);
        return std::move(opened.store);
    }

    StoreStatus statusOfOpening(const ObjectSchema &schema) { return place_.open(schema).status; }

    // What a program of another kind does with the file.
    void execute(const std::string &sql) { SQLite::Database(path(), SQLite::OPEN_READWRITE).exec(sql); }

    [[nodiscard]] fs::path folder() const { return place_.folder(); }
    [[nodiscard]] fs::path path() const { return place_.path(); }

    [[nodiscard]] int damagedCount() const
    {
        int count = 0;
        for (const auto &entry : contentsOf(folder())) {
            const auto &name = entry.first;
            const bool isLog = name.ends_with("-wal") || name.ends_with("-shm");
            count += name.starts_with("records.sqlite.damaged-") && !isLog ? 1 : 0;
        }
        return count;
    }

private:
    testsupport::FilePlace place_;
};

TEST_F(ObjectFileTest, IsForTheUserAlone)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    EXPECT_EQ(modeOf(folder()), 0700U);
    EXPECT_EQ(modeOf(path()), 0600U);
    EXPECT_EQ(modeOf(path().string() + "-wal"), 0600U);
}

TEST_F(ObjectFileTest, HasATableForEachEntityWithItsColumns)
{
    ASSERT_EQ(open()->save(insertionOf({note(1, "text", 7)})).status, StoreStatus::done);
    SQLite::Database database(path());
    SQLite::Statement row(database, "SELECT text, count, weight, isOpen, date, author FROM Note");
    ASSERT_TRUE(row.executeStep());
    EXPECT_EQ(row.getColumn(0).getString(), "text");
    EXPECT_EQ(row.getColumn(1).getInt(), 7);
    EXPECT_EQ(row.getColumn(2).getDouble(), 0.5);
    EXPECT_EQ(row.getColumn(3).getInt(), 1);
    EXPECT_EQ(row.getColumn(4).getDouble(), 1.0); // a second after the reference date
    EXPECT_TRUE(row.getColumn(5).isNull());
}

TEST_F(ObjectFileTest, FindsTheNewestWithoutLookingAtAllRows)
{
    const auto store = open();
    SQLite::Database database(path());
    SQLite::Statement plan(database, "EXPLAIN QUERY PLAN SELECT * FROM Note "
                                     "ORDER BY date DESC, persistentIdentifier DESC LIMIT 50");
    std::string steps;
    while (plan.executeStep()) {
        steps += plan.getColumn(3).getString() + "\n";
    }
    EXPECT_EQ(steps, "SCAN Note USING INDEX Note.date\n");
}

TEST_F(ObjectFileTest, KeepsNothingOfASaveThatFailsOnItsWay)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    execute("CREATE TRIGGER trouble BEFORE INSERT ON Note WHEN NEW.text = 'bad' "
            "BEGIN SELECT RAISE(ABORT, 'no'); END");
    auto changes = insertionOf({note(2), note(3, "bad"), note(4)});
    changes.deletions.push_back({0, keyOf(1)});
    EXPECT_EQ(store->save(changes).status, StoreStatus::failed);
    EXPECT_EQ(rowsIn(*store), std::vector{note(1)});
    execute("DROP TRIGGER trouble");
    EXPECT_EQ(store->save(changes).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), (std::vector{note(2), note(3, "bad"), note(4)}));
}

TEST_F(ObjectFileTest, IsBusyWhileAnotherProgramWritesForTooLong)
{
    const auto store = open();
    SQLite::Database other(path(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::busy);
    EXPECT_TRUE(rowsIn(*store).empty());
    other.exec("COMMIT");
    EXPECT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
}

TEST_F(ObjectFileTest, LeavesANewerFileUntouchedByteForByte)
{
    const auto newer = open(noteSchema(2));
    ASSERT_EQ(newer->save(insertionOf({note(1)})).status, StoreStatus::done);
    for (const auto &older : {olderSchema(1), olderSchema(2), noteSchema(1)}) {
        auto before = contentsOf(folder()); // with the log, which has all rows still
        EXPECT_EQ(statusOfOpening(older), StoreStatus::newer);
        auto after = contentsOf(folder());
        before.erase("records.sqlite-shm"); // says who has the file open
        after.erase("records.sqlite-shm");
        EXPECT_EQ(after, before);
    }
    EXPECT_EQ(rowsIn(*newer), std::vector{note(1)});
}

TEST_F(ObjectFileTest, LeavesANewerFileAndItsLogUntouchedWhereNobodyHasThemOpen)
{
    std::string database;
    std::string log;
    {
        const auto newer = open(noteSchema(2));
        ASSERT_EQ(newer->save(insertionOf({note(1)})).status, StoreStatus::done);
        database = contentOf(path());
        log = contentOf(path().string() + "-wal");
    }
    ASSERT_GT(log.size(), 0U);
    for (const auto &older : {olderSchema(1), olderSchema(2), noteSchema(1)}) {
        fs::remove_all(folder());
        fs::create_directory(folder());
        std::ofstream(path(), std::ios::binary) << database;
        std::ofstream(path().string() + "-wal", std::ios::binary) << log;
        EXPECT_EQ(statusOfOpening(older), StoreStatus::newer);
        EXPECT_EQ(contentOf(path()), database);
        EXPECT_EQ(contentOf(path().string() + "-wal"), log);
    }
    EXPECT_EQ(rowsIn(*open(noteSchema(2))), std::vector{note(1)});
}

TEST_F(ObjectFileTest, LeavesATableOfAnotherMakingUntouched)
{
    fs::create_directories(folder());
    {
        SQLite::Database database(path(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("CREATE TABLE Note (text TEXT NOT NULL); INSERT INTO Note VALUES ('theirs'); "
                      "PRAGMA user_version = 1");
    }
    EXPECT_EQ(statusOfOpening(noteSchema()), StoreStatus::mismatched);
    SQLite::Database database(path());
    EXPECT_EQ(database.execAndGet("SELECT text FROM Note").getString(), "theirs");
}

TEST_F(ObjectFileTest, LeavesOutRowsThatAnotherProgramSpoilt)
{
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1), note(2), note(3)})).status, StoreStatus::done);
    execute("UPDATE Note SET persistentIdentifier = x'01' WHERE persistentIdentifier = "
            "x'00000000000000000000000000000001'");
    execute("UPDATE Note SET date = 9e999 WHERE persistentIdentifier = x'00000000000000000000000000000003'");
    EXPECT_EQ(rowsIn(*store), std::vector{note(2)});
}

TEST_F(ObjectFileTest, IsSetAsideAndBegunAgainWhereItIsNoDatabase)
{
    fs::create_directories(folder());
    int expected = 0;
    for (const auto length : {std::size_t{1}, std::size_t{100}, std::size_t{100'000}}) {
        std::ofstream(path(), std::ios::binary | std::ios::trunc) << std::string(length, 'x');
        const auto store = open();
        EXPECT_TRUE(rowsIn(*store).empty());
        EXPECT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
        EXPECT_EQ(rowsIn(*store), std::vector{note(1)});
        EXPECT_EQ(damagedCount(), ++expected);
    }
}

TEST_F(ObjectFileTest, IsSetAsideAndBegunAgainWhereItProvesDamagedLater)
{
    {
        std::vector<ObjectRow> rows;
        for (std::uint8_t number = 1; number < 200; ++number) {
            rows.push_back(note(number, std::string(1000, 'x')));
        }
        ASSERT_EQ(open()->save(insertionOf(rows)).status, StoreStatus::done);
    }
    auto bytes = contentOf(path());
    std::fill(bytes.begin() + 20 * 4096, bytes.end(), '\xA5'); // the pages of rows, not those of the schema
    std::ofstream(path(), std::ios::binary | std::ios::trunc) << bytes;
    const auto store = open();
    EXPECT_TRUE(rowsIn(*store).empty());
    EXPECT_EQ(damagedCount(), 1);
    EXPECT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*open()), std::vector{note(1)});
}

TEST_F(ObjectFileTest, IsRefusedWhereAFolderIsInItsPlace)
{
    fs::create_directories(path());
    EXPECT_EQ(statusOfOpening(noteSchema()), StoreStatus::refused);
    EXPECT_TRUE(fs::is_directory(path()));
}

TEST_F(ObjectFileTest, SaysThatTheDiskIsFullAndSavesOnceThereIsRoom)
{
    ASSERT_TRUE(testsupport::separateMounts());
    const testsupport::SmallDisk disk(folder(), 2000);
    ASSERT_TRUE(disk.isMounted());
    const auto store = open();
    ASSERT_EQ(store->save(insertionOf({note(1)})).status, StoreStatus::done);
    std::ofstream filler(folder() / "filler", std::ios::binary);
    while (filler << std::string(4096, 'x') << std::flush) {
    }
    filler.close();
    const auto large = insertionOf({note(2, std::string(100'000, 'x')), note(3)});
    EXPECT_EQ(store->save(large).status, StoreStatus::full);
    EXPECT_EQ(rowsIn(*store), std::vector{note(1)});
    fs::remove(folder() / "filler");
    EXPECT_EQ(store->save(large).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store).size(), 3U);
}

TEST_F(ObjectFileTest, IsReadWhereItMayNotBeWritten)
{
    ASSERT_TRUE(testsupport::separateMounts());
    const testsupport::SmallDisk disk(folder(), 2000);
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    ASSERT_TRUE(disk.setReadOnly(true));
    const auto store = open();
    EXPECT_EQ(rowsIn(*store), std::vector{note(1)});
    EXPECT_EQ(store->save(insertionOf({note(2)})).status, StoreStatus::refused);
    EXPECT_EQ(rowsIn(*store), std::vector{note(1)});
    EXPECT_EQ(statusOfOpening({1, {noteEntity(), {"Other", noteEntity().columns}}}), StoreStatus::refused);
    ASSERT_TRUE(disk.setReadOnly(false));
    EXPECT_EQ(store->save(insertionOf({note(2)})).status, StoreStatus::done);
    EXPECT_EQ(rowsIn(*store), (std::vector{note(1), note(2)}));
}

TEST_F(ObjectFileTest, IsRefusedAndLeftAloneWhereItIsAnotherUsers)
{
    ASSERT_TRUE(testsupport::separateMounts());
    ASSERT_EQ(open()->save(insertionOf({note(1)})).status, StoreStatus::done);
    ASSERT_TRUE(testsupport::giveToAnotherUser(path()));
    const auto before = contentOf(path());
    EXPECT_EQ(statusOfOpening(noteSchema()), StoreStatus::refused);
    EXPECT_EQ(contentOf(path()), before);
}

} // namespace

} // namespace platform

// What the records look like in their file, and what becomes of files of other versions.

#include "Tests/SharedCore/ModelContextTest.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

namespace sharedcore {

namespace {

class PersistentFileTest : public testing::Test
{
protected:
    [[nodiscard]] platform::OpenedObjectStore open(std::int32_t version = 1)
    {
        return place_.open(schemaOf<ClipboardItem, DailyActivity>(version));
    }

    [[nodiscard]] std::string path() const { return place_.path(); }

    void execute(const std::string &sql) const { SQLite::Database(path(), SQLite::OPEN_READWRITE).exec(sql); }

    // The first row, its values separated by bars.
    [[nodiscard]] std::string row(const std::string &sql) const
    {
        SQLite::Database database(path());
        SQLite::Statement statement(database, sql);
        std::string text;
        if (statement.executeStep()) {
            for (int column = 0; column < statement.getColumnCount(); ++column) {
                text += statement.getColumn(column).getString() + "|";
            }
        }
        return text;
    }

private:
    testsupport::FilePlace place_;
};

TEST_F(PersistentFileTest, HasItsColumnsUnderTheNamesOfTheProperties)
{
    {
        ModelContext context(open().store);
        const auto item = std::make_shared<ClipboardItem>("text", "app");
        item->setTimestamp(foundation::referenceDate + std::chrono::milliseconds(1500));
        const auto activity = std::make_shared<DailyActivity>(foundation::referenceDate);
        activity->setMouseDistance(0.25);
        activity->setKeystrokes(3);
        activity->setActiveTime(60.5);
        context.insert(item);
        context.insert(activity);
        ASSERT_EQ(context.save(), StoreStatus::done);
    }
    EXPECT_EQ(row("SELECT content, timestamp, appSource, isPinned FROM ClipboardItem"), "text|1.5|app|0|");
    EXPECT_EQ(row("SELECT date, mouseDistance, keystrokes, activeTime FROM DailyActivity"),
              "0.0|0.25|3|60.5|");
}

TEST_F(PersistentFileTest, FillsColumnsOfAnOlderFileAsInANewRecord)
{
    {
        ModelContext context(open().store);
        context.insert(std::make_shared<ClipboardItem>("old", "app"));
        ASSERT_EQ(context.save(), StoreStatus::done);
    }
    execute("ALTER TABLE ClipboardItem DROP COLUMN isPinned");
    execute("DROP INDEX \"ClipboardItem.timestamp\"");
    execute("ALTER TABLE ClipboardItem DROP COLUMN timestamp");
    execute("DROP TABLE DailyActivity");
    const auto before = recordTime();
    ModelContext context(open(2).store);
    const auto items = itemsIn(context);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items.front()->content(), "old");
    EXPECT_EQ(items.front()->appSource(), "app");
    EXPECT_FALSE(items.front()->isPinned());
    EXPECT_GT(items.front()->timestamp(), before);
    EXPECT_LT(items.front()->timestamp(), recordTime());
    EXPECT_TRUE(context.fetch<DailyActivity>().records.empty());
    EXPECT_EQ(open(1).status, StoreStatus::newer);
}

TEST_F(PersistentFileTest, RefusesAFileWhoseRecordsHaveMoreProperties)
{
    ASSERT_EQ(open().status, StoreStatus::done);
    execute("ALTER TABLE ClipboardItem ADD COLUMN colour TEXT");
    EXPECT_EQ(open().status, StoreStatus::newer);
}

TEST_F(PersistentFileTest, BeginsAgainAndLosesNoObjectsWhereTheFileIsTakenAway)
{
    ModelContext context(open().store);
    const auto item = newItem("a");
    context.insert(item);
    ASSERT_EQ(context.save(), StoreStatus::done);
    for (const auto *ending : {"", "-wal", "-shm"}) {
        std::filesystem::remove(path() + ending);
    }
    const auto next = newItem("b");
    context.insert(next);
    ASSERT_EQ(context.save(), StoreStatus::done);
    EXPECT_EQ(contentsIn(context), "b");
    EXPECT_EQ(item->content(), "a");
    item->setContent("c");
    ASSERT_EQ(context.save(), StoreStatus::done);
    EXPECT_TRUE(item->isDeleted());
    context.insert(item);
    ASSERT_EQ(context.save(), StoreStatus::done);
    ModelContext other(open().store);
    EXPECT_EQ(contentsIn(other), "cb");
}

} // namespace

} // namespace sharedcore

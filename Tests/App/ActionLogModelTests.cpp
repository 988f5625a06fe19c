#include "App/ActionLogModel.h"
#include "Tests/App/EngineTest.h"

#include <QAbstractItemModelTester>

namespace stirra {

namespace {

class ActionLogModelTest : public EngineTest
{
protected:
    ActionLogModelTest()
    {
        model.setEngine(&engine);
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model,
                         [this](const QModelIndex &, int first, int last) { inserted += last - first + 1; });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model,
                         [this](const QModelIndex &, int first, int last) { removed += last - first + 1; });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &model, [this] { ++resets; });
    }

    // The rows, and the entries that they should show.
    [[nodiscard]] bool showsTheNewestEntries() const
    {
        const auto &log = engine.actionLog();
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto index = model.index(row);
            if (model.data(index, ActionLogModel::MessageRole) != log.at(row).message ||
                model.data(index, ActionLogModel::TimeTextRole) != log.at(row).timeText) {
                return false;
            }
        }
        return model.rowCount() == std::min<qsizetype>(15, log.size());
    }

    ActionLogModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    int inserted = 0;
    int removed = 0;
    int resets = 0;
};

TEST_F(ActionLogModelTest, GrowsToItsLimitAndKnowsTheWholeCount)
{
    EXPECT_EQ(model.rowCount(), 0);
    engine.toggle();
    advanceIntervals(30);
    EXPECT_EQ(model.rowCount(), 15);
    EXPECT_EQ(model.entryCount(), 31);
    EXPECT_TRUE(showsTheNewestEntries());
}

TEST_F(ActionLogModelTest, ANewEntryAddsOneRowAndDropsOne)
{
    engine.setMode(Mode::both);
    engine.toggle();
    advanceIntervals(60);
    inserted = removed = 0;
    advanceIntervals(1);
    EXPECT_EQ(inserted, 1);
    EXPECT_EQ(removed, 1);
    EXPECT_EQ(resets, 0);
    EXPECT_TRUE(showsTheNewestEntries());
}

TEST_F(ActionLogModelTest, ShowsEachOfTheEntriesOfOneSecond)
{
    for (int i = 0; i < 10; ++i) {
        engine.toggle();
        EXPECT_TRUE(showsTheNewestEntries());
    }
    EXPECT_EQ(model.rowCount(), 10);
}

TEST_F(ActionLogModelTest, IsEmptyWithoutAnEngine)
{
    engine.toggle();
    model.setEngine(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.entryCount(), 0);
}

} // namespace

} // namespace stirra

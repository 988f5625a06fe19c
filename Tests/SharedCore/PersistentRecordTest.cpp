#include "SharedCore/Storage/ClipboardItem.h"
#include "SharedCore/Storage/DailyActivity.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

namespace sharedcore {

namespace {

using foundation::Date;
using namespace std::string_literals;

constexpr Date noon = foundation::referenceDate + std::chrono::hours(12);

template <class Model> std::vector<std::string_view> publishedNames()
{
    std::vector<std::string_view> names;
    for (const auto &property : Model::schemaMetadata()) {
        EXPECT_FALSE(property.defaultValue.has_value());
        EXPECT_TRUE(property.attributes.empty());
        names.push_back(property.name);
    }
    return names;
}

template <class Model, class Value>
bool leadsTo(std::size_t place, Value (Model::*get)() const, void (Model::*set)(Value))
{
    return Model::schemaMetadata()[place].keyPath == KeyPath<Model>(PropertyPath<Model, Value>{get, set});
}

TEST(ClipboardItem, IsOfThePresentMomentAndNotPinned)
{
    const RecordTimeSource source([] { return noon; });
    const ClipboardItem item("text", "org.example.Editor");
    EXPECT_EQ(item.content(), "text");
    EXPECT_EQ(item.timestamp(), noon);
    EXPECT_EQ(item.appSource(), "org.example.Editor");
    EXPECT_FALSE(item.isPinned());
    EXPECT_EQ(ClipboardItem("", std::nullopt).appSource(), std::nullopt);
}

TEST(ClipboardItem, IsARecordOfItsOwnAlsoWithTheSameContent)
{
    const ClipboardItem one("same", std::nullopt);
    const ClipboardItem other("same", std::nullopt);
    EXPECT_EQ(one, one);
    EXPECT_NE(one, other);
    const std::unordered_set<PersistentIdentifier> identifiers{one.persistentIdentifier(),
                                                               other.persistentIdentifier()};
    EXPECT_EQ(identifiers.size(), 2U);
    EXPECT_EQ(std::hash<ClipboardItem>()(one), std::hash<PersistentIdentifier>()(one.persistentIdentifier()));
}

TEST(ClipboardItem, PublishesItsPropertiesInOrder)
{
    EXPECT_EQ(publishedNames<ClipboardItem>(),
              (std::vector<std::string_view>{"content", "timestamp", "appSource", "isPinned"}));
    EXPECT_TRUE(leadsTo(0, &ClipboardItem::content, &ClipboardItem::setContent));
    EXPECT_TRUE(leadsTo(1, &ClipboardItem::timestamp, &ClipboardItem::setTimestamp));
    EXPECT_TRUE(leadsTo(2, &ClipboardItem::appSource, &ClipboardItem::setAppSource));
    EXPECT_TRUE(leadsTo(3, &ClipboardItem::isPinned, &ClipboardItem::setIsPinned));
}

TEST(ClipboardItem, ReadsAndWritesEachPropertyOfItsBackingData)
{
    const platform::ObjectRow row{{{1, 2, 3}}, {"stored"s, noon, {}, true}};
    ClipboardItem item(BackingData(ClipboardItem::entityName, row));
    EXPECT_EQ(item.persistentIdentifier(), (PersistentIdentifier{"ClipboardItem", row.key}));
    EXPECT_EQ(item.content(), "stored");
    EXPECT_EQ(item.timestamp(), noon);
    EXPECT_EQ(item.appSource(), std::nullopt);
    EXPECT_TRUE(item.isPinned());
    item.setContent("new");
    item.setTimestamp(noon + std::chrono::microseconds(1));
    item.setAppSource("app");
    item.setIsPinned(false);
    EXPECT_EQ(item.content(), "new");
    EXPECT_EQ(item.timestamp(), noon + std::chrono::microseconds(1));
    EXPECT_EQ(item.appSource(), "app");
    EXPECT_FALSE(item.isPinned());
}

TEST(DailyActivity, IsOfThePresentMomentWithCountersAtZero)
{
    const RecordTimeSource source([] { return noon; });
    const DailyActivity activity;
    EXPECT_EQ(activity.date(), noon);
    EXPECT_EQ(activity.mouseDistance(), 0.0);
    EXPECT_EQ(activity.keystrokes(), 0);
    EXPECT_EQ(activity.activeTime(), 0.0);
    EXPECT_EQ(DailyActivity(noon - std::chrono::days(1)).date(), noon - std::chrono::days(1));
}

TEST(DailyActivity, IsNotMergedWithAnotherOfTheDay)
{
    Date previous = DailyActivity().date();
    for (int i = 0; i < 1000; ++i) {
        const auto date = DailyActivity().date();
        ASSERT_LT(previous, date);
        previous = date;
    }
    EXPECT_NE(DailyActivity(noon), DailyActivity(noon));
}

TEST(DailyActivity, PublishesItsPropertiesInOrder)
{
    EXPECT_EQ(publishedNames<DailyActivity>(),
              (std::vector<std::string_view>{"date", "mouseDistance", "keystrokes", "activeTime"}));
    EXPECT_TRUE(leadsTo(0, &DailyActivity::date, &DailyActivity::setDate));
    EXPECT_TRUE(leadsTo(1, &DailyActivity::mouseDistance, &DailyActivity::setMouseDistance));
    EXPECT_TRUE(leadsTo(2, &DailyActivity::keystrokes, &DailyActivity::setKeystrokes));
    EXPECT_TRUE(leadsTo(3, &DailyActivity::activeTime, &DailyActivity::setActiveTime));
}

TEST(DailyActivity, ReadsAndWritesEachPropertyOfItsBackingData)
{
    DailyActivity activity(
        BackingData(DailyActivity::entityName, {{{1}}, {noon, 1.5, std::int64_t{2}, 2.5}}));
    EXPECT_EQ(activity.date(), noon);
    EXPECT_EQ(activity.mouseDistance(), 1.5);
    EXPECT_EQ(activity.keystrokes(), 2);
    EXPECT_EQ(activity.activeTime(), 2.5);
    activity.setDate(noon - std::chrono::days(1));
    activity.setMouseDistance(3.5);
    activity.setKeystrokes(4);
    activity.setActiveTime(4.5);
    EXPECT_EQ(activity.date(), noon - std::chrono::days(1));
    EXPECT_EQ(activity.mouseDistance(), 3.5);
    EXPECT_EQ(activity.keystrokes(), 4);
    EXPECT_EQ(activity.activeTime(), 4.5);
}

TEST(PersistentRecord, HasATableWithTheNamesOfItsClassAndProperties)
{
    const auto schema = schemaOf<ClipboardItem, DailyActivity>(3);
    EXPECT_EQ(schema.version, 3);
    using enum platform::ColumnType;
    const auto describe = [](const platform::Entity &entity) {
        std::string text = entity.name + ":";
        for (const auto &column : entity.columns) {
            text += " " + column.name + " " + std::to_string(static_cast<int>(column.type)) +
                    (column.isOptional ? "?" : "");
        }
        return text;
    };
    ASSERT_EQ(schema.entities.size(), 2U);
    EXPECT_EQ(describe(schema.entities[0]), "ClipboardItem: content 0 timestamp 4 appSource 0? isPinned 3");
    EXPECT_EQ(describe(schema.entities[1]),
              "DailyActivity: date 4 mouseDistance 2 keystrokes 1 activeTime 2");
    EXPECT_TRUE(platform::isSound(schema));
}

TEST(PersistentRecord, TellsWhoObservesAPropertyBeforeAndAfterItsChange)
{
    ClipboardItem item("old", std::nullopt);
    std::string told;
    const auto observation =
        observe(item, &ClipboardItem::content,
                {[&] { told += "<" + item.content(); }, [&] { told += ">" + item.content(); }});
    item.setContent("new");
    item.setIsPinned(true);
    EXPECT_EQ(told, "<old>new");
}

TEST(PersistentRecord, IsTrackedWhereItIsRead)
{
    DailyActivity activity(noon);
    int count = 0;
    const auto keystrokes = withObservationTracking([&] { return activity.keystrokes(); }, [&] { ++count; });
    EXPECT_EQ(keystrokes, 0);
    activity.setActiveTime(1);
    EXPECT_EQ(count, 0);
    activity.setKeystrokes(1);
    activity.setKeystrokes(2);
    EXPECT_EQ(count, 1);
}

TEST(PersistentIdentifier, IsGivenOnceAndGrows)
{
    auto previous = PersistentIdentifier::make("Note");
    for (int i = 0; i < 1000; ++i) {
        const auto next = PersistentIdentifier::make("Note");
        ASSERT_LT(previous, next);
        previous = next;
    }
}

} // namespace

} // namespace sharedcore

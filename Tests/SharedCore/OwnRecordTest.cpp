// A class of records as an application writes it for itself.

#include "Tests/SharedCore/ModelContextTest.h"

namespace sharedcore {

namespace {

class Bookmark final : public PersistentModel
{
public:
    static constexpr std::string_view entityName = "Bookmark";

    explicit Bookmark(std::string title)
        : PersistentModel({entityName, initialValues(std::move(title))})
    {}
    explicit Bookmark(BackingData backing)
        : PersistentModel(std::move(backing))
    {}

    [[nodiscard]] std::string title() const { return value<std::string>(0); }
    void setTitle(std::string title) { setValue(0, std::move(title)); }
    [[nodiscard]] std::optional<std::int64_t> page() const { return value<std::optional<std::int64_t>>(1); }
    void setPage(std::optional<std::int64_t> page) { setValue(1, page); }

    static std::vector<PropertyMetadata<Bookmark>> schemaMetadata()
    {
        return {{"title", &Bookmark::title, &Bookmark::setTitle},
                {"page", &Bookmark::page, &Bookmark::setPage}};
    }
    static std::vector<platform::ColumnValue> initialValues(std::string title = {})
    {
        return {toColumn(std::move(title)), toColumn(std::optional<std::int64_t>())};
    }
};

TEST(OwnRecord, IsKeptBesideTheOthers)
{
    testsupport::FilePlace place;
    const auto schema = schemaOf<ClipboardItem, Bookmark>();
    {
        ModelContext context(place.open(schema).store);
        const auto bookmark = std::make_shared<Bookmark>("here");
        context.insert(bookmark);
        bookmark->setPage(12);
        context.insert(newItem("a"));
        ASSERT_EQ(context.save(), StoreStatus::done);
    }
    ModelContext context(place.open(schema).store);
    const auto found = context.fetch(FetchDescriptor<Bookmark>()
                                         .where(&Bookmark::page, Comparison::greater, 10)
                                         .sortedBy(&Bookmark::title));
    ASSERT_EQ(found.records.size(), 1U);
    EXPECT_EQ(found.records.front()->title(), "here");
    EXPECT_EQ(found.records.front()->page(), 12);
    EXPECT_EQ(contentsIn(context), "a");
}

} // namespace

} // namespace sharedcore

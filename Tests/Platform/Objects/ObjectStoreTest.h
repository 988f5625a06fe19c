// A store of notes of each kind.
#pragma once

#include "Tests/Platform/Objects/ObjectStorePlace.h"

#include <gtest/gtest.h>

namespace platform {

enum NotePlace : std::size_t { textPlace, countPlace, weightPlace, isOpenPlace, datePlace, authorPlace };

inline Entity noteEntity()
{
    return {"Note",
            {{"text", ColumnType::text, false, std::string()},
             {"count", ColumnType::wholeNumber, false, std::int64_t{0}},
             {"weight", ColumnType::number, false, 0.0},
             {"isOpen", ColumnType::boolean, false, false},
             {"date", ColumnType::date, false, foundation::referenceDate},
             {"author", ColumnType::text, true, {}}}};
}

inline ObjectSchema noteSchema(std::int32_t version = 1)
{
    return {version, {noteEntity()}};
}

inline ObjectKey keyOf(std::uint8_t number)
{
    ObjectKey key;
    key.bytes.back() = number;
    return key;
}

inline ObjectRow note(std::uint8_t number, const std::string &text = "text", std::int64_t count = 0,
                      ColumnValue author = {})
{
    return {keyOf(number),
            {text, count, 0.5, true, foundation::referenceDate + std::chrono::seconds(number),
             std::move(author)}};
}

inline ObjectChanges insertionOf(const std::vector<ObjectRow> &rows)
{
    ObjectChanges changes;
    for (const auto &row : rows) {
        changes.insertions.push_back({0, row});
    }
    return changes;
}

inline std::vector<ObjectRow> rowsIn(ObjectStore &store, const ObjectQuery &query = {})
{
    auto result = store.fetch(query);
    EXPECT_EQ(result.status, StoreStatus::done);
    return std::move(result.rows);
}

inline std::string textsIn(ObjectStore &store, const ObjectQuery &query)
{
    std::string texts;
    for (const auto &row : rowsIn(store, query)) {
        texts += std::get<std::string>(row.values[textPlace]);
    }
    return texts;
}

class ObjectStoreTest : public testing::TestWithParam<testsupport::ObjectStoreKind>
{
protected:
    [[nodiscard]] std::unique_ptr<ObjectStore> open(const ObjectSchema &schema = noteSchema())
    {
        auto opened = place_->open(schema);
        EXPECT_EQ(opened.status, StoreStatus::done);
        return std::move(opened.store);
    }

    [[nodiscard]] StoreStatus statusOfOpening(const ObjectSchema &schema)
    {
        const auto opened = place_->open(schema);
        EXPECT_EQ(opened.store != nullptr, opened.status == StoreStatus::done);
        return opened.status;
    }

private:
    std::unique_ptr<testsupport::ObjectStorePlace> place_ = GetParam().makePlace();
};

} // namespace platform

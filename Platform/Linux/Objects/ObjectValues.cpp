#include "Platform/Linux/Objects/ObjectValues.h"

#include <SQLiteCpp/Column.h>

#include <algorithm>
#include <cstring>

namespace platform {

namespace {

struct Binder
{
    SQLite::Statement &statement;
    int parameter;

    void operator()(std::monostate) const { statement.bind(parameter); }
    void operator()(const std::string &text) const { statement.bindNoCopy(parameter, text); }
    void operator()(bool value) const { statement.bind(parameter, value ? 1 : 0); }
    void operator()(foundation::Date date) const
    {
        statement.bind(parameter, foundation::secondsSinceReferenceDate(date));
    }
    template <class Number> void operator()(Number number) const { statement.bind(parameter, number); }
};

std::optional<ColumnValue> dateIn(const SQLite::Column &column)
{
    const auto date = foundation::dateFromReferenceSeconds(column.getDouble());
    return date ? std::optional<ColumnValue>(*date) : std::nullopt;
}

std::optional<ColumnValue> booleanIn(const SQLite::Column &column)
{
    const auto number = column.getInt64();
    return number == 0 || number == 1 ? std::optional<ColumnValue>(number == 1) : std::nullopt;
}

// What a table that is ours holds in a column of the type; anything where it is not.
std::optional<ColumnValue> valueIn(const SQLite::Column &column, ColumnType type)
{
    if (column.isNull()) {
        return ColumnValue();
    }
    switch (type) {
    case ColumnType::text:
        return ColumnValue(column.getString());
    case ColumnType::wholeNumber:
        return ColumnValue(std::int64_t{column.getInt64()});
    case ColumnType::number:
        return ColumnValue(column.getDouble());
    case ColumnType::boolean:
        return booleanIn(column);
    case ColumnType::date:
        break;
    }
    return dateIn(column);
}

std::optional<ObjectKey> keyIn(const SQLite::Column &column)
{
    ObjectKey key;
    const auto *bytes = column.getBlob();
    if (column.getBytes() != static_cast<int>(key.bytes.size())) {
        return std::nullopt;
    }
    std::memcpy(key.bytes.data(), bytes, key.bytes.size());
    return key;
}

} // namespace

void bind(SQLite::Statement &statement, int parameter, const ColumnValue &value)
{
    std::visit(Binder{statement, parameter}, value);
}

void bind(SQLite::Statement &statement, int parameter, const ObjectKey &key)
{
    statement.bindNoCopy(parameter, key.bytes.data(), static_cast<int>(key.bytes.size()));
}

std::optional<ObjectRow> rowIn(SQLite::Statement &statement, const Entity &entity)
{
    const auto key = keyIn(statement.getColumn(0));
    ObjectRow row{key.value_or(ObjectKey()), {}};
    row.values.reserve(entity.columns.size());
    int place = 1;
    for (const auto &column : entity.columns) {
        auto value = valueIn(statement.getColumn(place++), column.type);
        if (!key || !value || !fits(column, *value)) {
            return std::nullopt;
        }
        row.values.push_back(std::move(*value));
    }
    return row;
}

} // namespace platform

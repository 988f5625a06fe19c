#include "Platform/Linux/Objects/ObjectSql.h"

namespace platform {

namespace {

// A name that was quoted already.
const std::string &key()
{
    static const auto name = quotedName(keyColumnName);
    return name;
}

template <class Items, class Text>
std::string joined(const Items &items, std::string_view separator, const Text &textOf)
{
    std::string text;
    for (const auto &item : items) {
        text += text.empty() ? "" : separator;
        text += textOf(item);
    }
    return text;
}

std::string columnsOf(const Entity &entity)
{
    return key() + ", " +
           joined(entity.columns, ", ", [](const Column &column) { return quotedName(column.name); });
}

std::string conditionOn(const std::string &column, Comparison comparison)
{
    switch (comparison) {
    case Comparison::equal:
        return column + " IS ?";
    case Comparison::notEqual:
        return column + " IS NOT ?";
    case Comparison::less:
        return column + " < ?";
    case Comparison::lessOrEqual:
        return column + " <= ?";
    case Comparison::greater:
        return column + " > ?";
    case Comparison::greaterOrEqual:
        return column + " >= ?";
    case Comparison::contains:
        return "instr(" + column + ", ?) > 0";
    }
    return {};
}

std::string conditionsOf(const Entity &entity, const ObjectQuery &query)
{
    const auto text = joined(query.conditions, " AND ", [&entity](const Condition &condition) {
        return conditionOn(quotedName(entity.columns[condition.column].name), condition.comparison);
    });
    return text.empty() ? text : " WHERE " + text;
}

std::string direction(bool isDescending)
{
    return isDescending ? " DESC, " : ", ";
}

std::string orderOf(const Entity &entity, const ObjectQuery &query)
{
    std::string text = " ORDER BY ";
    for (const auto &ordering : query.orderings) {
        text += quotedName(entity.columns[ordering.column].name) + direction(ordering.isDescending);
    }
    const bool isDescending = !query.orderings.empty() && query.orderings.back().isDescending;
    return text + key() + (isDescending ? " DESC" : "");
}

} // namespace

std::string quotedName(std::string_view name)
{
    std::string text = "\"";
    for (const char letter : name) {
        text += letter == '"' ? "\"\"" : std::string(1, letter);
    }
    return text + "\"";
}

const char *storageClassOf(ColumnType type)
{
    switch (type) {
    case ColumnType::text:
        return "TEXT";
    case ColumnType::wholeNumber:
    case ColumnType::boolean:
        return "INTEGER";
    case ColumnType::number:
    case ColumnType::date:
        break;
    }
    return "REAL";
}

const char *zeroOf(ColumnType type)
{
    return type == ColumnType::text ? "''" : "0";
}

std::string definitionOf(const Column &column)
{
    std::string text = quotedName(column.name) + " " + storageClassOf(column.type);
    if (!column.isOptional) {
        text += std::string(" NOT NULL DEFAULT ") + zeroOf(column.type);
    }
    if (column.type == ColumnType::boolean) {
        text += " CHECK (" + quotedName(column.name) + " IN (0, 1))";
    }
    return text;
}

std::string tableDefinitionOf(const Entity &entity)
{
    return "CREATE TABLE " + quotedName(entity.name) + " (" + key() + " BLOB NOT NULL UNIQUE, " +
           joined(entity.columns, ", ", definitionOf) + ") STRICT";
}

bool isIndexed(const Column &column)
{
    return column.type == ColumnType::date;
}

std::string indexNameOf(const Entity &entity, const Column &column)
{
    return entity.name + "." + column.name;
}

std::string indexDefinitionOf(const Entity &entity, const Column &column)
{
    return "CREATE INDEX " + quotedName(indexNameOf(entity, column)) + " ON " + quotedName(entity.name) +
           " (" + quotedName(column.name) + ", " + key() + ")";
}

std::string insertionInto(const Entity &entity)
{
    return "INSERT OR REPLACE INTO " + quotedName(entity.name) + " (" + columnsOf(entity) + ") VALUES (?, " +
           joined(entity.columns, ", ", [](const Column &) { return "?"; }) + ")";
}

std::string updateOf(const Entity &entity, const std::vector<std::size_t> &places)
{
    const auto assignments = joined(places, ", ", [&entity](std::size_t place) {
        return quotedName(entity.columns[place].name) + " = ?";
    });
    return "UPDATE " + quotedName(entity.name) + " SET " + assignments + " WHERE " + key() + " = ?";
}

std::string deletionFrom(const Entity &entity)
{
    return "DELETE FROM " + quotedName(entity.name) + " WHERE " + key() + " = ?";
}

std::string selectionFrom(const Entity &entity, const ObjectQuery &query)
{
    return "SELECT " + columnsOf(entity) + " FROM " + quotedName(entity.name) + conditionsOf(entity, query) +
           orderOf(entity, query) + (query.limit ? " LIMIT ?" : "");
}

} // namespace platform

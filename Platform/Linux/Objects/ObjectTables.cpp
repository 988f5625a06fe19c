#include "Platform/Linux/Objects/ObjectTables.h"

#include "Platform/Linux/Objects/ObjectRefusal.h"
#include "Platform/Linux/Objects/ObjectSql.h"
#include "Platform/Linux/Objects/ObjectValues.h"

#include <algorithm>
#include <functional>
#include <map>

namespace platform {

namespace {

// A column as the file has it.
struct FoundColumn
{
    std::string storageClass;
    bool isOptional;

    bool operator==(const FoundColumn &) const = default;
};

using FoundColumns = std::map<std::string, FoundColumn>;
using Step = std::function<void(SqliteConnection &)>;

FoundColumns columnsIn(SqliteConnection &connection, const Entity &entity)
{
    FoundColumns found;
    const auto statement = connection.statement(R"(SELECT name, type, "notnull" FROM pragma_table_info(?))");
    statement->bind(1, entity.name);
    while (statement->executeStep()) {
        found[statement->getColumn(0).getString()] = {statement->getColumn(1).getString(),
                                                      statement->getColumn(2).getInt() == 0};
    }
    return found;
}

bool hasIndex(SqliteConnection &connection, const std::string &name)
{
    const auto statement =
        connection.statement("SELECT 1 FROM sqlite_schema WHERE type = 'index' AND name = ?");
    statement->bind(1, name);
    return statement->executeStep();
}

bool isAsFound(const Column &column, const FoundColumns &found)
{
    const auto entry = found.find(column.name);
    return entry == found.end() ||
           entry->second == FoundColumn{storageClassOf(column.type), column.isOptional};
}

bool isKnown(const std::string &name, const Entity &entity)
{
    return name == keyColumnName ||
           std::ranges::find(entity.columns, name, &Column::name) != entity.columns.end();
}

[[noreturn]] void refuse(SqliteConnection &connection, StoreStatus status)
{
    connection.setLeavesFilesAlone(true);
    throw ObjectRefusal{status};
}

// REQUIRES: the table is there.
void refuseOthers(SqliteConnection &connection, const Entity &entity, const FoundColumns &found)
{
    const auto key = found.find(keyColumnName);
    const bool isOurs = key != found.end() && key->second == FoundColumn{"BLOB", false};
    const auto isSame = [&found](const Column &column) { return isAsFound(column, found); };
    if (!isOurs || !std::ranges::all_of(entity.columns, isSame)) {
        refuse(connection, StoreStatus::mismatched);
    }
    if (!std::ranges::all_of(found, [&](const auto &column) { return isKnown(column.first, entity); })) {
        refuse(connection, StoreStatus::newer);
    }
}

Step executing(std::string sql)
{
    return [sql = std::move(sql)](SqliteConnection &file) { file.database().exec(sql); };
}

void addColumn(SqliteConnection &connection, const Entity &entity, const Column &column)
{
    const auto table = quotedName(entity.name);
    connection.database().exec("ALTER TABLE " + table + " ADD COLUMN " + definitionOf(column));
    SQLite::Statement fill(connection.database(),
                           "UPDATE " + table + " SET " + quotedName(column.name) + " = ?");
    bind(fill, 1, column.initialValue);
    fill.exec();
}

void addTableSteps(SqliteConnection &connection, const Entity &entity, std::vector<Step> &steps)
{
    const auto found = columnsIn(connection, entity);
    if (found.empty()) {
        steps.push_back(executing(tableDefinitionOf(entity)));
        return;
    }
    refuseOthers(connection, entity, found);
    for (const auto &column : entity.columns) {
        if (!found.contains(column.name)) {
            steps.emplace_back([&](SqliteConnection &file) { addColumn(file, entity, column); });
        }
    }
}

// What has to be done, in order.
std::vector<Step> missingSteps(SqliteConnection &connection, const ObjectSchema &schema)
{
    std::vector<Step> steps;
    for (const auto &entity : schema.entities) {
        addTableSteps(connection, entity, steps);
        for (const auto &column : entity.columns) {
            if (isIndexed(column) && !hasIndex(connection, indexNameOf(entity, column))) {
                steps.push_back(executing(indexDefinitionOf(entity, column)));
            }
        }
    }
    return steps;
}

} // namespace

bool areTablesComplete(SqliteConnection &connection, const ObjectSchema &schema)
{
    return missingSteps(connection, schema).empty();
}

void completeTables(SqliteConnection &connection, const ObjectSchema &schema)
{
    for (const auto &step : missingSteps(connection, schema)) {
        step(connection);
    }
}

} // namespace platform

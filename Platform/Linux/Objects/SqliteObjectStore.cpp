#include "Platform/Linux/Objects/SqliteObjectStore.h"

#include "Platform/Linux/Objects/ObjectRefusal.h"
#include "Platform/Linux/Objects/ObjectSql.h"
#include "Platform/Linux/Objects/ObjectTables.h"
#include "Platform/Linux/Objects/ObjectValues.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace platform {

namespace {

StoreStatus statusOf(SqliteStatus status)
{
    switch (status) {
    case SqliteStatus::done:
        return StoreStatus::done;
    case SqliteStatus::busy:
        return StoreStatus::busy;
    case SqliteStatus::full:
        return StoreStatus::full;
    case SqliteStatus::readOnly:
    case SqliteStatus::denied:
        return StoreStatus::refused;
    case SqliteStatus::newer:
        return StoreStatus::newer;
    case SqliteStatus::damaged:
    case SqliteStatus::failed:
        break;
    }
    return StoreStatus::failed;
}

void insert(SqliteConnection &connection, const std::string &sql, const ObjectRow &row)
{
    const auto statement = connection.statement(sql);
    int parameter = 1;
    bind(*statement, parameter++, row.key);
    for (const auto &value : row.values) {
        bind(*statement, parameter++, value);
    }
    statement->exec();
}

// False where there is no such row.
bool update(SqliteConnection &connection, const Entity &entity, const ObjectUpdate &update)
{
    std::vector<std::size_t> places;
    std::ranges::transform(update.values, std::back_inserter(places),
                           [](const auto &change) { return change.first; });
    const auto statement = connection.statement(updateOf(entity, places));
    int parameter = 1;
    for (const auto &change : update.values) {
        bind(*statement, parameter++, change.second);
    }
    bind(*statement, parameter, update.key);
    return statement->exec() > 0;
}

void remove(SqliteConnection &connection, const Entity &entity, const ObjectKey &key)
{
    const auto statement = connection.statement(deletionFrom(entity));
    bind(*statement, 1, key);
    statement->exec();
}

std::vector<ObjectRow> rowsOf(SqliteConnection &connection, const Entity &entity, const ObjectQuery &query)
{
    const auto statement = connection.statement(selectionFrom(entity, query));
    int parameter = 1;
    for (const auto &condition : query.conditions) {
        bind(*statement, parameter++, condition.value);
    }
    if (query.limit) {
        constexpr auto most = std::numeric_limits<std::int64_t>::max();
        statement->bind(parameter, static_cast<std::int64_t>(std::min<std::uint64_t>(*query.limit, most)));
    }
    std::vector<ObjectRow> rows;
    while (statement->executeStep()) {
        if (auto row = rowIn(*statement, entity)) {
            rows.push_back(std::move(*row));
        }
    }
    return rows;
}

} // namespace

SqliteObjectStore::SqliteObjectStore(std::filesystem::path file, ObjectSchema schema)
    : path_(std::move(file))
    , schema_(std::move(schema))
    , file_(closedFile())
{}

SqliteObjectStore::~SqliteObjectStore() = default;

StoreStatus SqliteObjectStore::prepare()
{
    return run([this](SqliteConnection &connection) {
        if (!areTablesComplete(connection, schema_)) {
            connection.transaction([&] { completeTables(connection, schema_); });
        }
    });
}

SaveResult SqliteObjectStore::save(const ObjectChanges &changes)
{
    if (!isSound(changes, schema_)) {
        return {StoreStatus::invalid, {}};
    }
    SaveResult result;
    result.status = run([&](SqliteConnection &connection) {
        result.missing.clear(); // of an attempt before
        connection.transaction([&] { write(connection, changes, result); });
    });
    if (result.status != StoreStatus::done) {
        result.missing.clear();
    }
    return result;
}

FetchResult SqliteObjectStore::fetch(const ObjectQuery &query)
{
    if (!isSound(query, schema_)) {
        return {StoreStatus::invalid, {}};
    }
    FetchResult result;
    result.status = run([&](SqliteConnection &connection) {
        result.rows = rowsOf(connection, schema_.entities[query.entity], query);
    });
    return result;
}

// A file that this returns is made ready by completeTables() whenever it is opened as an older or fresh one.
std::unique_ptr<SqliteFile> SqliteObjectStore::closedFile() const
{
    SqliteFormat format{schema_.version,
                        [this](SqliteConnection &connection, int) { completeTables(connection, schema_); },
                        {}};
    return std::make_unique<SqliteFile>(path_, std::move(format));
}

StoreStatus SqliteObjectStore::run(const SqliteFile::Work &work)
{
    const std::scoped_lock lock(mutex_);
    try {
        return statusOf(file_->run(work));
    } catch (const ObjectRefusal &refusal) {
        file_ = closedFile();
        return refusal.status;
    }
}

void SqliteObjectStore::write(SqliteConnection &connection, const ObjectChanges &changes,
                              SaveResult &result) const
{
    refuseNewer(connection);
    std::vector<std::string> insertions;
    std::ranges::transform(schema_.entities, std::back_inserter(insertions), insertionInto);
    for (const auto &insertion : changes.insertions) {
        insert(connection, insertions[insertion.entity], insertion.row);
    }
    for (const auto &change : changes.updates) {
        if (!change.values.empty() && !update(connection, schema_.entities[change.entity], change)) {
            result.missing.push_back(change.key);
        }
    }
    for (const auto &deletion : changes.deletions) {
        remove(connection, schema_.entities[deletion.entity], deletion.key);
    }
}

// Another process may have brought the file further since it was opened.
void SqliteObjectStore::refuseNewer(SqliteConnection &connection) const
{
    if (connection.numberOf("PRAGMA user_version") > schema_.version) {
        throw ObjectRefusal{StoreStatus::newer};
    }
}

OpenedObjectStore openObjectStore(const std::filesystem::path &file, const ObjectSchema &schema)
{
    if (!isSound(schema)) {
        return {StoreStatus::invalid, nullptr};
    }
    auto store = std::make_unique<SqliteObjectStore>(file, schema);
    const auto status = store->prepare();
    return {status, status == StoreStatus::done ? std::move(store) : nullptr};
}

} // namespace platform

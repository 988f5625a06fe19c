#include "Platform/Linux/Defaults/SqliteDefaultsStore.h"

#include "Foundation/Utf8.h"
#include "Platform/PropertyValueCoding.h"

#include <limits>
#include <span>
#include <utility>

namespace platform {

namespace {

constexpr auto readSql = "SELECT value FROM entry WHERE key = ?";
constexpr auto writeSql = "INSERT INTO entry VALUES (?, ?) ON CONFLICT DO UPDATE SET value = excluded.value";
constexpr auto removeSql = "DELETE FROM entry WHERE key = ?";

constexpr std::size_t longestValue = std::numeric_limits<int>::max();

SqliteFormat format()
{
    return {1,
            [](SqliteConnection &connection, int /*olderVersion*/) {
                connection.database().exec(
                    "CREATE TABLE entry (key TEXT NOT NULL PRIMARY KEY, value BLOB NOT NULL) WITHOUT ROWID");
            },
            "SELECT key, value FROM entry"};
}

Data contentOf(const SQLite::Column &column)
{
    const auto bytes = std::span(static_cast<const std::byte *>(column.getBlob()),
                                 static_cast<std::size_t>(column.getBytes()));
    return {bytes.begin(), bytes.end()};
}

} // namespace

SqliteDefaultsStore::SqliteDefaultsStore(std::filesystem::path file)
    : file_(std::move(file), format())
{}

std::optional<PropertyValue> SqliteDefaultsStore::value(std::string_view key)
{
    std::optional<Data> stored;
    file_.run([&](SqliteConnection &connection) {
        stored.reset();
        const auto statement = connection.statement(readSql);
        statement->bind(1, std::string(key));
        if (statement->executeStep()) {
            stored = contentOf(statement->getColumn(0));
        }
    });
    return stored ? decodedPropertyValue(*stored) : std::nullopt;
}

bool SqliteDefaultsStore::setValue(std::string_view key, const PropertyValue &value)
{
    const auto stored = encodedPropertyValue(value);
    if (!stored || stored->size() > longestValue || !foundation::isUtf8(key)) {
        return false;
    }
    return file_.run([&](SqliteConnection &connection) {
        const auto statement = connection.statement(writeSql);
        statement->bind(1, std::string(key));
        statement->bindNoCopy(2, stored->data(), static_cast<int>(stored->size()));
        statement->exec();
    }) == SqliteStatus::done;
}

bool SqliteDefaultsStore::remove(std::string_view key)
{
    return file_.run([key](SqliteConnection &connection) {
        const auto statement = connection.statement(removeSql);
        statement->bind(1, std::string(key));
        statement->exec();
    }) == SqliteStatus::done;
}

} // namespace platform

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

constexpr std::chrono::seconds longestMemory(1);
constexpr std::size_t mostRemembered = 64;

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
    const auto found = sharedValue(key);
    return found ? std::optional(*found) : std::nullopt;
}

std::shared_ptr<const PropertyValue> SqliteDefaultsStore::sharedValue(std::string_view key)
{
    const auto stamp = file_.stamp(); // before anything is read: what comes later shows in the next one
    if (const auto known = recalled(key, stamp)) {
        return *known;
    }
    const auto readAt = Clock::now();
    const auto value = read(key);
    if (value && stamp && stamp->isSettled()) {
        remember(key, *value, *stamp, readAt);
    }
    return value.value_or(nullptr);
}

std::optional<SqliteDefaultsStore::Value> SqliteDefaultsStore::read(std::string_view key)
{
    std::optional<Data> stored;
    const auto status = file_.run([&](SqliteConnection &connection) {
        stored.reset();
        const auto statement = connection.statement(readSql);
        statement->bind(1, std::string(key));
        if (statement->executeStep()) {
            stored = contentOf(statement->getColumn(0));
        }
    });
    if (status != SqliteStatus::done) {
        return std::nullopt;
    }
    auto value = stored ? decodedPropertyValue(*stored) : std::nullopt;
    return value ? std::make_shared<const PropertyValue>(std::move(*value)) : nullptr;
}

std::optional<SqliteDefaultsStore::Value> SqliteDefaultsStore::recalled(std::string_view key,
                                                                        const std::optional<LogStamp> &stamp)
{
    const std::scoped_lock lock(mutex_);
    if (!stamp || stamp != stamp_ || Clock::now() - readAt_ > longestMemory) {
        return std::nullopt;
    }
    const auto found = values_.find(key);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void SqliteDefaultsStore::remember(std::string_view key, const Value &value, const LogStamp &stamp,
                                   Clock::time_point readAt)
{
    const std::scoped_lock lock(mutex_);
    if (stamp != stamp_ || readAt - readAt_ > longestMemory || values_.size() >= mostRemembered) {
        values_.clear();
        stamp_ = stamp;
        readAt_ = readAt;
    }
    values_.insert_or_assign(std::string(key), value);
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

// Plain values in a database file.
#pragma once

#include "Platform/DefaultsStore.h"
#include "Platform/Linux/Sqlite/SqliteFile.h"

#include <chrono>
#include <map>
#include <mutex>

namespace platform {

// One table of keys and stored forms. A form that is damaged reads as nothing. What was read is kept in
// memory as long as the file has the stamp that it had then, and for a second at most.
class SqliteDefaultsStore final : public DefaultsStore
{
public:
    // REQUIRES: the path is absolute.
    explicit SqliteDefaultsStore(std::filesystem::path file);

    std::optional<PropertyValue> value(std::string_view key) override;
    std::shared_ptr<const PropertyValue> sharedValue(std::string_view key) override;
    bool setValue(std::string_view key, const PropertyValue &value) override;
    bool remove(std::string_view key) override;

private:
    using Value = std::shared_ptr<const PropertyValue>;
    using Clock = std::chrono::steady_clock;

    // Each gives nothing where it does not know; no value in it where it is known that there is none.
    [[nodiscard]] std::optional<Value> read(std::string_view key);
    [[nodiscard]] std::optional<Value> recalled(std::string_view key, const std::optional<LogStamp> &stamp);

    void remember(std::string_view key, const Value &value, const LogStamp &stamp, Clock::time_point readAt);

    SqliteFile file_;
    std::mutex mutex_; // for what is below
    std::optional<LogStamp> stamp_;
    Clock::time_point readAt_; // of the value that was read first
    std::map<std::string, Value, std::less<>> values_;
};

} // namespace platform

// The object store in an SQLite file: a table for each entity, a column for each property.
#pragma once

#include "Platform/Linux/Sqlite/SqliteFile.h"
#include "Platform/ObjectStore.h"

#include <filesystem>
#include <memory>
#include <mutex>

namespace platform {

class SqliteObjectStore final : public ObjectStore
{
public:
    // REQUIRES: the schema is sound.
    SqliteObjectStore(std::filesystem::path file, ObjectSchema schema);
    ~SqliteObjectStore() override;

    // Makes what the file lacks.
    [[nodiscard]] StoreStatus prepare();

    [[nodiscard]] const ObjectSchema &schema() const override { return schema_; }
    [[nodiscard]] SaveResult save(const ObjectChanges &changes) override;
    [[nodiscard]] FetchResult fetch(const ObjectQuery &query) override;

private:
    [[nodiscard]] std::unique_ptr<SqliteFile> closedFile() const;
    StoreStatus run(const SqliteFile::Work &work);
    void write(SqliteConnection &connection, const ObjectChanges &changes, SaveResult &result) const;
    void refuseNewer(SqliteConnection &connection) const;

    const std::filesystem::path path_;
    const ObjectSchema schema_;
    std::mutex mutex_;
    std::unique_ptr<SqliteFile> file_;
};

} // namespace platform

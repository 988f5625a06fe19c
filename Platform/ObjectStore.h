// A durable store of rows, by entity. The classes of SharedCore's persistent records stand on it.
#pragma once

#include "Platform/ObjectChanges.h"
#include "Platform/ObjectQuery.h"
#include "Platform/ObjectRow.h"
#include "Platform/ObjectSchema.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace platform {

enum class StoreStatus {
    done,
    invalid,    // the schema, query or change makes no sense; nothing was touched
    newer,      // the file was written with a newer schema; it was left as it is
    mismatched, // the file has a table of another making under an entity's name; it was left as it is
    busy,       // another process was writing for too long
    full,       // no room on the disk
    refused,    // the file or its folder may not be read or written
    failed,     // anything else: the device, or a damaged file that could not be set aside
};

struct SaveResult
{
    StoreStatus status = StoreStatus::failed;
    // Rows that were to be updated and had been deleted by somebody else: the deletion stands.
    std::vector<ObjectKey> missing;
};

struct FetchResult
{
    StoreStatus status = StoreStatus::failed;
    std::vector<ObjectRow> rows;
};

// Any thread; one call at a time goes through. Other processes, and other stores of this one, may have the
// same file open; a call waits for their saves, 2 s at most, and a save waits for the disk. Nothing is
// thrown.
class ObjectStore
{
public:
    ObjectStore() = default;
    ObjectStore(const ObjectStore &) = delete;
    ObjectStore &operator=(const ObjectStore &) = delete;
    virtual ~ObjectStore() = default;

    [[nodiscard]] virtual const ObjectSchema &schema() const = 0;

    // All of the changes or, unless the status is `done`, none of them. What is done is on the disk. The
    // insertion of a row whose key is there already replaces that row, so that a save may be repeated
    // whose end was not seen. The deletion of a row that is not there is done.
    [[nodiscard]] virtual SaveResult save(const ObjectChanges &changes) = 0;

    // The rows of one moment. A row that somebody else's program spoilt, so that it does not fit the
    // entity, is left out.
    [[nodiscard]] virtual FetchResult fetch(const ObjectQuery &query) = 0;
};

struct OpenedObjectStore
{
    StoreStatus status = StoreStatus::failed;
    std::unique_ptr<ObjectStore> store; // nothing unless the status is `done`
};

// Opens the store in the file, making it and its folder where they are missing (0600, 0700; a folder that is
// there becomes the user's alone too, so it should hold nothing else, and a path without one is refused).
// Tables that the file lacks are made, columns that it lacks are added and filled with their initial values;
// tables beside those of the schema are left alone. A file is newer than the schema where its version is, or
// where one of the tables has a column that the schema lacks.
//
// A file that is no database, or a damaged one, is set aside under a dated name with all that belongs to it,
// and a fresh one is begun, whenever the damage is found: at the opening or later. Any thread.
[[nodiscard]] OpenedObjectStore openObjectStore(const std::filesystem::path &file,
                                                const ObjectSchema &schema);

} // namespace platform

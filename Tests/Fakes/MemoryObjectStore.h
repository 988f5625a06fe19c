// An object store whose file is in memory, and that fails on command.
#pragma once

#include "Platform/ObjectStore.h"

#include <map>
#include <string>

namespace fakes {

// Several stores may have it open. One thread.
struct MemoryObjectFile
{
    struct Table
    {
        std::vector<platform::Column> columns;
        std::map<platform::ObjectKey, std::vector<platform::ColumnValue>> rows;
    };

    std::int32_t version = 0; // of the schema that wrote it last
    std::map<std::string, Table> tables;

    // What saves and fetches answer, without doing anything, unless it is `done`.
    platform::StoreStatus answer = platform::StoreStatus::done;
    int saveCount = 0; // of the saves that were done
};

[[nodiscard]] platform::OpenedObjectStore openMemoryObjectStore(const std::shared_ptr<MemoryObjectFile> &file,
                                                                const platform::ObjectSchema &schema);

} // namespace fakes

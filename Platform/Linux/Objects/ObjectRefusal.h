// Why a file is not touched.
#pragma once

#include "Platform/ObjectStore.h"

namespace platform {

// Thrown by work on a store's file, and caught by the store: SqliteFile lets it pass.
struct ObjectRefusal
{
    StoreStatus status;
};

} // namespace platform

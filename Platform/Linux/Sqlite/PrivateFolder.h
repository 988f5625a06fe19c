// The folder that a database lies in: the user's own, and one process at a time while files are put in place.
#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sqlite/SqliteStatus.h"

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <optional>

namespace platform {

// Makes the folder and those above it where they are missing, for the user alone (0700), and closes one of
// the user's that others can enter. Gives `denied` where it belongs to somebody else, or is one that users
// share (with the sticky bit).
SqliteStatus makePrivateFolder(const std::filesystem::path &folder);

// Kept by one process, and by one thread of it, at a time; given back in the end. A file system that has no
// locks gives it to everybody.
class FolderLock
{
public:
    // Waits for others at most so long.
    FolderLock(const std::filesystem::path &folder, std::chrono::milliseconds timeout);

    [[nodiscard]] bool isHeld() const { return isHeld_; }

private:
    FileDescriptor folder_;
    bool isHeld_;
};

// What stat() says; nothing where there is nothing.
std::optional<struct stat> fileStatus(const std::filesystem::path &file);

// Whether files can be made in the folder, and this one, where there is one, be changed.
bool isWritable(const std::filesystem::path &file);

// Moves the database and the files beside it to a name that tells when ("NAME.damaged-20261231T235959Z").
// Each keeps its ending, so that they still belong together; nothing is overwritten or removed. REQUIRES: the
// folder is locked.
bool setAside(const std::filesystem::path &file);

} // namespace platform

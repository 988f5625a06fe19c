// File systems that only the calling process sees.
#pragma once

#include <filesystem>

namespace testsupport {

// Gives the process a view of the file systems of its own, once; it needs to be root, or allowed to make user
// namespaces, and without threads then. False where the system does not let it.
[[nodiscard]] bool separateMounts();

// A file system of so many kilobytes, in memory, on the folder. REQUIRES: separateMounts() was true.
class SmallDisk
{
public:
    SmallDisk(std::filesystem::path folder, int kilobytes);
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;
    ~SmallDisk();

    [[nodiscard]] bool isMounted() const { return isMounted_; }
    // REQUIRES: no file on it is open for writing, where it becomes read-only.
    [[nodiscard]] bool setReadOnly(bool isReadOnly) const;

private:
    std::filesystem::path folder_;
    bool isMounted_;
};

// Makes the file one of another user's. REQUIRES: separateMounts() was true.
[[nodiscard]] bool giveToAnotherUser(const std::filesystem::path &file);

} // namespace testsupport

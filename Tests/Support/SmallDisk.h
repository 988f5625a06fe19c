// A disk that is soon full.
#pragma once

#include <cstddef>
#include <filesystem>

namespace testsupport {

// A file system in memory, of so many bytes, over an existing folder. Only the calling process sees it, in a
// mount namespace that it enters for good: for tests that run in a process of their own, before they have
// threads. Throws std::system_error where the kernel allows no such namespace.
class SmallDisk
{
public:
    SmallDisk(const std::filesystem::path &folder, std::size_t size);
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;
    ~SmallDisk();

private:
    std::filesystem::path folder_;
};

} // namespace testsupport

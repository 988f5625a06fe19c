// An open file of the kernel that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace platform {

class FileDescriptor
{
public:
    // Takes what open(), socket() and their like gave; -1 is none.
    explicit FileDescriptor(int descriptor = -1)
        : descriptor_(descriptor)
    {}
    FileDescriptor(FileDescriptor &&other) noexcept
        : descriptor_(other.release())
    {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileDescriptor()
    {
        if (isOpen()) {
            close(descriptor_);
        }
    }

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int get() const { return descriptor_; }
    // Leaves the file open, for whoever takes it.
    [[nodiscard]] int release() { return std::exchange(descriptor_, -1); }

private:
    int descriptor_;
};

} // namespace platform

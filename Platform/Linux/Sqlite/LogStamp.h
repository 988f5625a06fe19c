// Whether a database has been written to, without asking it.
#pragma once

#include <sys/stat.h>

#include <ctime>
#include <optional>

namespace platform {

// What the kernel says of the log that every write goes to. As long as it is the same, nobody has written,
// nor moved or removed the file.
class LogStamp
{
public:
    explicit LogStamp(const struct stat &status);

    bool operator==(const LogStamp &other) const;

    // The last write is so long ago (50 ms) that the next one will have another time: the kernel's clock goes
    // in steps of some milliseconds. False as well where that time is still to come, and where the file
    // system keeps whole seconds.
    [[nodiscard]] bool isSettled() const;

private:
    off_t size_;
    timespec written_;
    timespec changed_;
};

} // namespace platform

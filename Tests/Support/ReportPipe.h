// A stand-in for the kernel's file of a HID device's raw reports: a named pipe in which what is written at
// once is read at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace testsupport {

// Makes the pipe, whose folder is made too; gives the path back.
std::filesystem::path makeReportPipe(const std::filesystem::path &path);

// The end of a pipe that a device writes to. REQUIRES: somebody has opened the other end.
class ReportPipe
{
public:
    explicit ReportPipe(const std::filesystem::path &path);
    ReportPipe(const ReportPipe &) = delete;
    ReportPipe &operator=(const ReportPipe &) = delete;
    // The reader is told of the end, as that of a device which is unplugged.
    ~ReportPipe();

    // False where the pipe is full; a report is lost then, as a real one is.
    bool write(std::span<const std::byte> report) const;

private:
    int descriptor_;
};

// A report of the accelerometer: 22 bytes, of which x, y and z, in 1/65536 g, are at byte 6 and behind it.
[[nodiscard]] std::vector<std::byte> accelerometerReport(std::int32_t x, std::int32_t y = 0,
                                                         std::int32_t z = 0);

} // namespace testsupport

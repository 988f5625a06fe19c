#include "Tests/Support/ReportPipe.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace testsupport {

namespace {

constexpr long keptReports = 64; // as many as the kernel keeps for a reader

} // namespace

std::filesystem::path makeReportPipe(const std::filesystem::path &path)
{
    std::filesystem::create_directories(path.parent_path());
    if (mkfifo(path.c_str(), 0600) != 0) {
        throw std::runtime_error("cannot make the pipe " + path.string());
    }
    return path;
}

ReportPipe::ReportPipe(const std::filesystem::path &path)
    : descriptor_(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC))
{
    // A named pipe is not opened with O_DIRECT, but it may be set. Each report takes a page.
    if (descriptor_ < 0 || fcntl(descriptor_, F_SETFL, O_NONBLOCK | O_DIRECT) != 0 ||
        fcntl(descriptor_, F_SETPIPE_SZ, keptReports * sysconf(_SC_PAGESIZE)) < 0) {
        throw std::runtime_error("nobody reads the pipe " + path.string());
    }
}

ReportPipe::~ReportPipe()
{
    close(descriptor_);
}

bool ReportPipe::write(std::span<const std::byte> report) const
{
    return ::write(descriptor_, report.data(), report.size()) == static_cast<ssize_t>(report.size());
}

std::vector<std::byte> accelerometerReport(std::int32_t x, std::int32_t y, std::int32_t z)
{
    std::vector<std::byte> report(22);
    std::size_t place = 6;
    for (const auto axis : {x, y, z}) {
        for (std::size_t index = 0; index < sizeof axis; ++index) {
            report[place++] = static_cast<std::byte>(static_cast<std::uint32_t>(axis) >> (8 * index));
        }
    }
    return report;
}

} // namespace testsupport

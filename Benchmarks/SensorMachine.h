// What the measurements of the sensors share.
#pragma once

#include "Benchmarks/Report.h"
#include "Platform/Linux/Sysfs/SysfsHardwareRegistry.h"
#include "Tests/Support/ReportPipe.h"
#include "Tests/Support/TemporaryFolder.h"

#include <ctime>
#include <fstream>

namespace benchmarks {

// A machine in a folder, which is current.
class SensorMachine
{
public:
    // Writes a file below sys/.
    void write(const std::string &file, std::string_view text) const
    {
        const auto path = folder_.path() / "sys" / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }

    // A HID device with a descriptor; gives its file, a pipe.
    [[nodiscard]] std::filesystem::path addHidraw(int number, std::string_view descriptor) const
    {
        const auto name = "hidraw" + std::to_string(number);
        write("class/hidraw/" + name + "/device/report_descriptor", descriptor);
        return testsupport::makeReportPipe(folder_.path() / "dev" / name);
    }

private:
    testsupport::TemporaryFolder folder_;
    platform::SysfsHardwareRegistry registry_{folder_.path()};
    platform::HardwareRegistryInstallation installation_{registry_};
};

inline void require(bool isTrue, const char *otherwise)
{
    if (!isTrue) {
        throw NotMeasured(otherwise);
    }
}

// CPU time of the calling thread.
[[nodiscard]] inline double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// What a stream of reports from the kernel costs the main thread, and whether all of them are taken.
[[nodiscard]] std::vector<Row> sensorStreamRows();

} // namespace benchmarks

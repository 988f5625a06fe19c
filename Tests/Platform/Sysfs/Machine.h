// A machine's /sys and /dev in a folder of their own.
#pragma once

#include "Platform/Linux/Sysfs/SysfsHardwareRegistry.h"
#include "Tests/Support/ReportPipe.h"
#include "Tests/Support/TemporaryFolder.h"

#include <fstream>

namespace platform {

class Machine
{
public:
    Machine()
    {
        // Readable by others, as /sys is.
        std::filesystem::permissions(root(), std::filesystem::perms(0755));
    }

    [[nodiscard]] const std::filesystem::path &root() const { return folder_.path(); }

    // Writes a file below sys/; a line end comes behind the text, as the kernel has it.
    std::filesystem::path write(const std::string &file, const std::string &text) const
    {
        const auto path = root() / "sys" / file;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text << '\n';
        return path;
    }

    // A device of the kernel's sensor subsystem.
    void addIio(int number, const std::map<std::string, std::string> &attributes) const
    {
        for (const auto &[name, text] : attributes) {
            write("bus/iio/devices/iio:device" + std::to_string(number) + '/' + name, text);
        }
    }

    // A HID device, with a pipe for its file.
    [[nodiscard]] std::filesystem::path addHidraw(int number,
                                                  const std::vector<std::uint8_t> &descriptor) const
    {
        const auto name = "hidraw" + std::to_string(number);
        const auto file = root() / "sys/class/hidraw" / name / "device/report_descriptor";
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary)
            .write(reinterpret_cast<const char *>(descriptor.data()), // NOLINT
                   static_cast<std::streamsize>(descriptor.size()));
        return testsupport::makeReportPipe(root() / "dev" / name);
    }

    void remove(const std::string &file) const { std::filesystem::remove_all(root() / file); }

private:
    testsupport::TemporaryFolder folder_;
};

} // namespace platform

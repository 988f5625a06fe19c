// The kernel's file for making input devices.
#pragma once

#include <linux/uinput.h>

#include <memory>
#include <span>

namespace platform {

// The operations on /dev/uinput, and nothing besides: a machine without it puts a recording in its place.
// Each gives 0, or the kernel's error number. Main thread; none waits.
class UinputFile
{
public:
    UinputFile() = default;
    UinputFile(const UinputFile &) = delete;
    UinputFile &operator=(const UinputFile &) = delete;
    // Closes the file, upon which the kernel takes the device away.
    virtual ~UinputFile() = default;

    // Opens the file for writing.
    virtual int open() = 0;
    // ioctl() with a number, or with none (0).
    virtual int control(unsigned long request, int argument) = 0;
    // ioctl() with UI_DEV_SETUP.
    virtual int setUp(const uinput_setup &setup) = 0;
    // Writes all events or none.
    virtual int write(std::span<const input_event> events) = 0;
};

// The one of the running kernel, /dev/uinput, or the path in the environment variable STIRRA_UINPUT_DEVICE:
// tests name one that does not exist, so that nothing reaches the machine that they run on.
[[nodiscard]] std::unique_ptr<UinputFile> kernelUinputFile();

} // namespace platform

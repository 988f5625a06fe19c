#include "Platform/Linux/Uinput/UinputFile.h"

#include "Platform/Linux/FileDescriptor.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/ioctl.h>

#include <cerrno>

namespace platform {

namespace {

constexpr const char *pathVariable = "STIRRA_UINPUT_DEVICE";

int errorOf(int result)
{
    return result < 0 ? errno : 0;
}

class KernelUinputFile final : public UinputFile
{
public:
    int open() override
    {
        const auto path = qEnvironmentVariableIsSet(pathVariable) ? qgetenv(pathVariable) : "/dev/uinput";
        const int descriptor = ::open(path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        const int error = errorOf(descriptor);
        file_ = FileDescriptor(descriptor);
        return error;
    }

    int control(unsigned long request, int argument) override
    {
        return errorOf(ioctl(file_.get(), request, argument));
    }

    int setUp(const uinput_setup &setup) override
    {
        return errorOf(ioctl(file_.get(), UI_DEV_SETUP, &setup));
    }

    int write(std::span<const input_event> events) override
    {
        const auto written = ::write(file_.get(), events.data(), events.size_bytes());
        if (written < 0) {
            return errno;
        }
        return static_cast<std::size_t>(written) == events.size_bytes() ? 0 : EIO;
    }

private:
    FileDescriptor file_;
};

} // namespace

std::unique_ptr<UinputFile> kernelUinputFile()
{
    return std::make_unique<KernelUinputFile>();
}

} // namespace platform

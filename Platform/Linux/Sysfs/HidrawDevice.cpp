#include "Platform/Linux/Sysfs/HidrawDevice.h"

#include <fcntl.h>

#include <cerrno>

namespace platform {

HidrawDevice::HidrawDevice(std::filesystem::path node, bool hasReportIds)
    : node_(std::move(node))
    , hasReportIds_(hasReportIds)
{
    rest_.setInterval(restTime);
    rest_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] { takeMore(); });
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { takeFirst(); });
}

RegistryResult HidrawDevice::open()
{
    close();
    file_ = FileDescriptor(::open(node_.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file_.isOpen()) {
        return errno;
    }
    listen();
    return registrySuccess;
}

void HidrawDevice::registerInputReportCallback(std::span<std::byte> buffer, InputReportCallback callback)
{
    buffer_ = buffer;
    callback_ = std::move(callback);
    listen();
}

void HidrawDevice::scheduleWithMainLoop()
{
    isScheduled_ = true;
    listen();
}

void HidrawDevice::unscheduleFromMainLoop()
{
    isScheduled_ = false;
    listen();
}

void HidrawDevice::close()
{
    const FileDescriptor closed = std::move(file_);
    listen();
}

void HidrawDevice::listen()
{
    rest_.stop();
    notifier_.setEnabled(false);
    isListening_ = isScheduled_ && file_.isOpen() && callback_ && !buffer_.empty();
    if (isListening_) {
        notifier_.setSocket(file_.get());
        notifier_.setEnabled(true);
    }
}

void HidrawDevice::takeFirst()
{
    const bool isStream = sinceFirst_.isValid() && !sinceFirst_.hasExpired(restTime.count());
    sinceFirst_.start();
    readReports();
    if (isStream && isListening_) {
        notifier_.setEnabled(false);
        rest_.start();
    }
}

void HidrawDevice::takeMore()
{
    if (readReports() == 0 && isListening_) {
        rest_.stop();
        notifier_.setEnabled(true);
    }
}

int HidrawDevice::readReports()
{
    int count = 0;
    while (count < mostReportsAtOnce && isListening_ && readReport()) {
        ++count;
    }
    return count;
}

bool HidrawDevice::readReport()
{
    const auto size = read(file_.get(), buffer_.data(), buffer_.size());
    if (size > 0) {
        deliver(static_cast<std::size_t>(size));
        return true;
    }
    if (size == 0 || (errno != EAGAIN && errno != EINTR)) {
        endWith(size == 0 ? ENODEV : errno);
    }
    return false;
}

void HidrawDevice::deliver(std::size_t size)
{
    const auto report = buffer_.first(size);
    callback_(
        {.reportId = hasReportIds_ ? std::to_integer<std::uint32_t>(report.front()) : 0, .bytes = report});
}

void HidrawDevice::endWith(int error)
{
    close();
    callback_({.result = error});
}

} // namespace platform

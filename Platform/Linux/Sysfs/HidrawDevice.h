// A HID device through the kernel's file for its raw reports, /dev/hidrawN.
#pragma once

#include "Platform/HidDevice.h"
#include "Platform/Linux/FileDescriptor.h"

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <filesystem>

namespace platform {

// Opened for reading only. The first report of a stream comes at once. When the next wake-up follows within
// `restTime`, the stream is taken in every `restTime` from then on until it pauses: 4000 reports a second
// cost 100 wake-ups, and a report is up to 10 ms old when it comes. One wake-up takes what the kernel keeps
// for a reader (64 reports, HIDRAW_BUFFER_SIZE); the kernel drops what is sent beyond that, so that an
// endless stream costs no more than 6400 reports a second do.
class HidrawDevice final : public HidDevice
{
public:
    static constexpr std::chrono::milliseconds restTime{10};
    static constexpr int mostReportsAtOnce = 64;

    // `hasReportIds`: the first byte of a report is its number.
    HidrawDevice(std::filesystem::path node, bool hasReportIds);

    // The kernel's error number where it fails: no permission, not there any more.
    RegistryResult open() override;
    void registerInputReportCallback(std::span<std::byte> buffer, InputReportCallback callback) override;
    void scheduleWithMainLoop() override;
    void unscheduleFromMainLoop() override;
    void close() override;

private:
    // Begins to wait for reports, where all is there that they need, or stops.
    void listen();
    void takeFirst();
    void takeMore();
    // How many reports came.
    int readReports();
    [[nodiscard]] bool readReport();
    void deliver(std::size_t size);
    void endWith(int error);

    const std::filesystem::path node_;
    const bool hasReportIds_;
    FileDescriptor file_;
    std::span<std::byte> buffer_;
    InputReportCallback callback_;
    bool isScheduled_ = false;
    bool isListening_ = false;
    QSocketNotifier notifier_{QSocketNotifier::Read}; // for the first report of a stream
    QTimer rest_;                                     // until the next ones are taken
    QElapsedTimer sinceFirst_;
};

} // namespace platform

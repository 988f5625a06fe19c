// Keyboards and mice of the kernel's, made up for one process.
#pragma once

#include "Tests/Support/PrivateMount.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <utility>
#include <vector>

typedef struct _UMockdevTestbed UMockdevTestbed; // NOLINT: the library's name

namespace testsupport {

// What this process finds under /sys, under /dev/input and in udev's records, in place of the machine's own.
// REQUIRES: the program runs under umockdev's preloaded library; separateMounts() was true.
class MockInputDevices
{
public:
    enum class Kind { keyboard, mouse, tablet };

    MockInputDevices();
    MockInputDevices(const MockInputDevices &) = delete;
    MockInputDevices &operator=(const MockInputDevices &) = delete;
    ~MockInputDevices();

    // Adds a device, and gives the path of its node. A keyboard's lights can be on: bits of LED_NUML and so
    // on. One that is plugged in is announced to those who watch.
    QString add(Kind kind, unsigned lights = 0);
    void announce(const QString &node, const char *action);
    // How often somebody in this process has it open.
    [[nodiscard]] int openCount(const QString &node) const;
    // Takes away the leave to read it.
    void forbid(const QString &node);

    // Plays a recording in evemu's format; see the recordings beside the tests.
    void play(const QString &node, const QString &recording);
    // Plays these events at once: type, code, value. What belongs together ends with 0, 0, 0.
    struct Event
    {
        std::uint16_t type;
        std::uint16_t code;
        std::int32_t value;
    };
    void play(const QString &node, const std::vector<Event> &events);

private:
    struct Device
    {
        QString node;
        QString systemPath;
        int file = -1; // keeps its terminal
    };

    [[nodiscard]] const Device &deviceOf(const QString &node) const;
    void describe(const QString &node, Kind kind, unsigned lights);
    void give(Device &device, Kind kind);

    SmallDisk run_{"/run", 1024};
    QTemporaryDir folder_;
    UMockdevTestbed *testbed_;
    std::vector<Device> devices_;
};

} // namespace testsupport

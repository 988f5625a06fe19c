#include "Tests/Support/Evdev/MockInputDevices.h"

#include <umockdev.h>

#include <fcntl.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <ctime>
#include <stdexcept>

namespace testsupport {

namespace {

using Kind = MockInputDevices::Kind;
using Bits = std::vector<unsigned>;

// As many bytes as the kernel has for so many bits, in words.
QByteArray bytesOf(const Bits &bits, unsigned count)
{
    QByteArray bytes(static_cast<qsizetype>((count + 63) / 64 * 8), '\0');
    for (const unsigned bit : bits) {
        auto &byte = bytes[static_cast<qsizetype>(bit / 8)];
        byte = static_cast<char>(static_cast<unsigned char>(byte) | (1U << (bit % 8)));
    }
    return bytes;
}

// A call and its answer, as umockdev records them.
QByteArray answer(const QByteArray &call, qsizetype result, const QByteArray &data)
{
    return call + ' ' + QByteArray::number(result) + ' ' + data.toHex().toUpper() + '\n';
}

QByteArray textAnswer(const QByteArray &call, const QByteArray &text)
{
    constexpr qsizetype room = 255; // what libevdev asks for
    return answer(call, text.size() + 1, text.leftJustified(room, '\0'));
}

QByteArray bitsAnswer(unsigned type, const Bits &bits, unsigned count)
{
    const auto bytes = bytesOf(bits, count);
    return answer("EVIOCGBIT(" + QByteArray::number(type) + ')', bytes.size(), bytes);
}

Bits typesOf(Kind kind)
{
    switch (kind) {
    case Kind::keyboard:
        return {EV_SYN, EV_KEY, EV_MSC, EV_LED, EV_REP};
    case Kind::mouse:
        return {EV_SYN, EV_KEY, EV_REL};
    case Kind::tablet:
        return {EV_SYN, EV_KEY, EV_ABS};
    }
    return {};
}

Bits keysOf(Kind kind)
{
    if (kind != Kind::keyboard) {
        return {BTN_LEFT, BTN_RIGHT, BTN_MIDDLE};
    }
    Bits keys;
    for (unsigned key = KEY_ESC; key <= KEY_MICMUTE; ++key) {
        keys.push_back(key);
    }
    return keys;
}

QByteArray axisAnswer(unsigned axis)
{
    const input_absinfo range{
        .value = 0, .minimum = 0, .maximum = 32767, .fuzz = 0, .flat = 0, .resolution = 0};
    return answer("EVIOCGABS(" + QByteArray::number(axis) + ')', 0,
                  QByteArray(reinterpret_cast<const char *>(&range), sizeof range)); // NOLINT
}

// Everything that libevdev asks a device for.
QByteArray answersOf(Kind kind, unsigned lights)
{
    constexpr input_id identity{BUS_USB, 0x1234, 0x5678, 1};
    QByteArray text =
        answer("EVIOCGVERSION", 0, QByteArray::fromHex("01000100")) +
        answer("EVIOCGID", 0, {reinterpret_cast<const char *>(&identity), sizeof identity}) + // NOLINT
        textAnswer("EVIOCGNAME(0)", "device") + textAnswer("EVIOCGPHYS(0)", "place") +
        textAnswer("EVIOCGUNIQ(0)", "");
    text += bitsAnswer(0, typesOf(kind), EV_CNT) + bitsAnswer(EV_KEY, keysOf(kind), KEY_CNT);
    text += bitsAnswer(EV_REL, kind == Kind::mouse ? Bits{REL_X, REL_Y, REL_WHEEL} : Bits(), REL_CNT);
    text += bitsAnswer(EV_ABS, kind == Kind::tablet ? Bits{ABS_X, ABS_Y} : Bits(), ABS_CNT);
    text += bitsAnswer(EV_MSC, {MSC_SCAN}, MSC_CNT) + bitsAnswer(EV_SW, {}, SW_CNT) +
            bitsAnswer(EV_FF, {}, FF_CNT) + bitsAnswer(EV_SND, {}, SND_CNT);
    text +=
        bitsAnswer(EV_LED, kind == Kind::keyboard ? Bits{LED_NUML, LED_CAPSL, LED_SCROLLL} : Bits(), LED_CNT);
    text += answer("EVIOCGPROP(0)", 8, bytesOf({}, INPUT_PROP_CNT)) +
            answer("EVIOCGKEY(0)", 96, bytesOf({}, KEY_CNT)) + answer("EVIOCGSW(0)", 8, bytesOf({}, SW_CNT));
    Bits lit;
    for (unsigned light = 0; light < 16; ++light) {
        if ((lights & (1U << light)) != 0) {
            lit.push_back(light);
        }
    }
    text += answer("EVIOCGLED(0)", 8, bytesOf(lit, 64)) +
            answer("EVIOCGREP", 0, QByteArray::fromHex("FA00000021000000"));
    return kind == Kind::tablet ? text + axisAnswer(ABS_X) + axisAnswer(ABS_Y) : text;
}

// What udev says of such a device.
QByteArray udevNameOf(Kind kind)
{
    return kind == Kind::keyboard ? "ID_INPUT_KEYBOARD" : "ID_INPUT_MOUSE";
}

void check(gboolean isDone, GError *error)
{
    if (!isDone) {
        throw std::runtime_error(error ? error->message : "umockdev");
    }
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        throw std::runtime_error(path.toStdString());
    }
}

} // namespace

MockInputDevices::MockInputDevices()
    : testbed_(umockdev_testbed_new())
{
    QDir().mkpath(QStringLiteral("/run/udev/data"));
    writeFile(QStringLiteral("/run/udev/control"), {}); // udev runs
}

MockInputDevices::~MockInputDevices()
{
    g_object_unref(testbed_);
    for (const auto &device : devices_) {
        close(device.file);
    }
}

QString MockInputDevices::add(Kind kind, unsigned lights)
{
    const auto number = QByteArray::number(devices_.size() + 5);
    const auto input = "/devices/virtual/input/input" + number;
    const auto event = input + "/event" + number;
    const auto name = udevNameOf(kind);
    GError *error = nullptr;
    check(umockdev_testbed_add_from_string(
              testbed_,
              ("P: " + event + "\nN: input/event" + number + "\nE: DEVNAME=/dev/input/event" + number +
               "\nE: ID_INPUT=1\nE: " + name +
               "=1\nE: MAJOR=13\nE: MINOR=64\nE: SUBSYSTEM=input\nA: dev=13:" + number +
               "\nL: device=../../input" + number + "\n\nP: " + input + "\nE: ID_INPUT=1\nE: " + name +
               "=1\nE: NAME=\"device\"\nE: PRODUCT=3/1234/5678/1\nE: SUBSYSTEM=input\nA: name=device\n\n")
                  .constData(),
              &error),
          error);
    Device device{QString::fromLatin1("/dev/input/event" + number), QString::fromLatin1("/sys" + event)};
    describe(device.node, kind, lights);
    give(device, kind);
    devices_.push_back(device);
    return device.node;
}

void MockInputDevices::describe(const QString &node, Kind kind, unsigned lights)
{
    const auto path = folder_.filePath(node.section(QLatin1Char('/'), -1));
    writeFile(path, "@DEV " + node.toLatin1() + '\n' + answersOf(kind, lights));
    GError *error = nullptr;
    check(umockdev_testbed_load_ioctl(testbed_, node.toLatin1().constData(), path.toLatin1().constData(),
                                      &error),
          error);
}

// The node is a terminal in truth, and libinput wants the device with that number to be the one it opened.
void MockInputDevices::give(Device &device, Kind kind)
{
    device.file = open(device.node.toLatin1().constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status
    {};
    fstat(device.file, &status);
    const auto major = QByteArray::number(major(status.st_rdev));
    const auto minor = QByteArray::number(minor(status.st_rdev));
    const auto path = device.systemPath.toLatin1();
    umockdev_testbed_set_property(testbed_, path.constData(), "MAJOR", major.constData());
    umockdev_testbed_set_property(testbed_, path.constData(), "MINOR", minor.constData());
    const std::unique_ptr<char, decltype(&g_free)> root(umockdev_testbed_get_root_dir(testbed_), g_free);
    const auto numbers = QString::fromUtf8(root.get()) + QStringLiteral("/sys/dev/char");
    const auto name = QString::fromLatin1(major + ':' + minor);
    QDir().mkpath(numbers);
    QFile::link(QStringLiteral("../..") + device.systemPath.mid(4), numbers + QLatin1Char('/') + name);
    writeFile(QStringLiteral("/run/udev/data/c") + name, "E:ID_INPUT=1\nE:" + udevNameOf(kind) + "=1\nV:1\n");
}

const MockInputDevices::Device &MockInputDevices::deviceOf(const QString &node) const
{
    return *std::ranges::find(devices_, node, &Device::node);
}

void MockInputDevices::announce(const QString &node, const char *action)
{
    umockdev_testbed_uevent(testbed_, deviceOf(node).systemPath.toLatin1().constData(), action);
}

int MockInputDevices::openCount(const QString &node) const
{
    const auto own = deviceOf(node).file;
    struct stat device
    {};
    fstat(own, &device);
    int count = 0;
    for (const auto &name : QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System)) {
        struct stat opened
        {};
        const int file = name.toInt();
        count += file != own && fstat(file, &opened) == 0 && opened.st_rdev == device.st_rdev ? 1 : 0;
    }
    return count;
}

// As root may read everything, the node leads nowhere.
void MockInputDevices::forbid(const QString &node)
{
    const std::unique_ptr<char, decltype(&g_free)> root(umockdev_testbed_get_root_dir(testbed_), g_free);
    const auto path = QString::fromUtf8(root.get()) + node;
    QFile::remove(path);
    QFile::link(QStringLiteral("/nonexistent"), path);
}

void MockInputDevices::play(const QString &node, const QString &recording)
{
    GError *error = nullptr;
    check(umockdev_testbed_load_evemu_events(testbed_, node.toLatin1().constData(),
                                             recording.toLocal8Bit().constData(), &error),
          error);
}

void MockInputDevices::play(const QString &node, const std::vector<Event> &events)
{
    std::vector<input_event> records;
    for (const auto &event : events) {
        input_event record{};
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        record.input_event_sec = now.tv_sec;
        record.input_event_usec = now.tv_nsec / 1000;
        record.type = event.type;
        record.code = event.code;
        record.value = event.value;
        records.push_back(record);
    }
    const auto size = records.size() * sizeof(input_event);
    const int file = umockdev_testbed_get_dev_fd(testbed_, node.toLatin1().constData());
    if (write(file, records.data(), size) != static_cast<ssize_t>(size)) {
        throw std::runtime_error("the events do not fit");
    }
}

} // namespace testsupport

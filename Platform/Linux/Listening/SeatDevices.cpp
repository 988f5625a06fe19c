#include "Platform/Linux/Listening/SeatDevices.h"

#include <QByteArray>

#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>

namespace platform {

namespace {

QByteArray seatName()
{
    const auto name = qgetenv("XDG_SEAT");
    return name.isEmpty() ? QByteArray("seat0") : name;
}

// What is typed must not get into any log, whatever the library may come to write one day.
void dropLog(libinput * /*context*/, libinput_log_priority /*priority*/, const char * /*format*/,
             va_list /*arguments*/)
{}

} // namespace

const libinput_interface SeatDevices::nodes{openNode, closeNode};

SeatDevices::SeatDevices()
    : udev_(udev_new())
    , input_(udev_ ? libinput_udev_create_context(&nodes, this, udev_.get()) : nullptr)
{
    if (!input_) {
        return;
    }
    libinput_log_set_handler(input_.get(), dropLog);
    isOpen_ = libinput_udev_assign_seat(input_.get(), seatName().constData()) == 0;
    // The devices that are there are told of at once.
    if (dispatch()) {
        while (const auto event = next()) {
        }
    }
}

int SeatDevices::descriptor() const
{
    return isOpen_ ? libinput_get_fd(input_.get()) : -1;
}

bool SeatDevices::dispatch()
{
    return input_ && libinput_dispatch(input_.get()) == 0;
}

SeatDevices::Event SeatDevices::next()
{
    Event event(libinput_get_event(input_.get()));
    if (event && libinput_event_get_type(event.get()) == LIBINPUT_EVENT_DEVICE_ADDED) {
        noteDevice(event.get());
    }
    return event;
}

void SeatDevices::noteDevice(libinput_event *event)
{
    auto *device = libinput_event_get_device(event);
    hasKeyboard_ |= libinput_device_has_capability(device, LIBINPUT_DEVICE_CAP_KEYBOARD) != 0;
    hasPointer_ |= libinput_device_has_capability(device, LIBINPUT_DEVICE_CAP_POINTER) != 0;
}

void SeatDevices::setOpen(bool isOpen)
{
    if (isOpen_ == isOpen || !input_) {
        return;
    }
    isOpen_ = isOpen;
    if (isOpen) {
        libinput_resume(input_.get());
    } else {
        libinput_suspend(input_.get());
    }
}

int SeatDevices::openNode(const char *path, int /*flags*/, void *self)
{
    const int descriptor = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return -errno;
    }
    static_cast<SeatDevices *>(self)->readLights(descriptor);
    return descriptor;
}

void SeatDevices::closeNode(int descriptor, void * /*self*/)
{
    close(descriptor);
}

void SeatDevices::readLights(int descriptor)
{
    unsigned long lights = 0; // the kernel keeps bits in words
    if (ioctl(descriptor, EVIOCGLED(sizeof lights), &lights) >= 0) {
        lights_.capsLock |= (lights & (1U << LED_CAPSL)) != 0;
        lights_.numLock |= (lights & (1U << LED_NUML)) != 0;
    }
}

} // namespace platform

// The keyboards and pointers of the user's seat that the program may read.
#pragma once

#include <libinput.h>
#include <libudev.h>

#include <cstdint>
#include <memory>

namespace platform {

// libinput over the kernel's devices, as they come and go. They are opened for reading alone: nobody else
// gets any less of them, and nothing can be written. One thread.
class SeatDevices
{
public:
    struct DropEvent
    {
        void operator()(libinput_event *event) const { libinput_event_destroy(event); }
    };
    using Event = std::unique_ptr<libinput_event, DropEvent>;

    // Which of the locks' lights are on, as far as a keyboard has told when it was opened.
    struct Lights
    {
        bool capsLock = false;
        bool numLock = false;
    };

    // Opens what may be read; check hasKeyboard() and hasPointer().
    SeatDevices();
    SeatDevices(const SeatDevices &) = delete;
    SeatDevices &operator=(const SeatDevices &) = delete;

    [[nodiscard]] bool hasKeyboard() const { return hasKeyboard_; }
    [[nodiscard]] bool hasPointer() const { return hasPointer_; }
    [[nodiscard]] const Lights &lights() const { return lights_; }

    // Becomes readable when something happens; -1 where there is nothing to listen to.
    [[nodiscard]] int descriptor() const;
    // Takes in what happened. False: it never happens again.
    [[nodiscard]] bool dispatch();
    // The next thing that happened; nothing where that was all.
    [[nodiscard]] Event next();

    // Closes the devices, and opens them again.
    void setOpen(bool isOpen);

private:
    struct DropUdev
    {
        void operator()(udev *context) const { udev_unref(context); }
    };
    struct DropInput
    {
        void operator()(libinput *context) const { libinput_unref(context); }
    };

    static int openNode(const char *path, int flags, void *self);
    static void closeNode(int descriptor, void *self);
    static const libinput_interface nodes;

    void readLights(int descriptor);
    void noteDevice(libinput_event *event);

    std::unique_ptr<udev, DropUdev> udev_;
    std::unique_ptr<libinput, DropInput> input_;
    bool hasKeyboard_ = false;
    bool hasPointer_ = false;
    bool isOpen_ = false;
    Lights lights_;
};

} // namespace platform

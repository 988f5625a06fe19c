// Sees to it that a keymap is put right again, however the program ends.
#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/X11/XKeymap.h"

namespace platform {

// A process beside this one, with a connection of its own to the X server. When this one ends without having
// let the guard go, killed for instance, the guard waits until programs have read what was typed, and gives
// the keys their meanings. It ignores every signal that can be ignored. One thread.
class KeymapGuard
{
public:
    // Connects to the display that the environment names, and starts the process; check isOpen().
    explicit KeymapGuard(const XKeyMeanings &meanings);
    KeymapGuard(const KeymapGuard &) = delete;
    KeymapGuard &operator=(const KeymapGuard &) = delete;
    // Lets the guard go: nothing is changed any more.
    ~KeymapGuard();

    // Whether somebody watches.
    [[nodiscard]] bool isOpen() const { return line_.isOpen(); }

private:
    void start(const std::vector<std::uint8_t> &requests);

    XConnection connection_; // the guard's; not used by this process any more
    FileDescriptor line_;    // what the guard listens at: closed without a word, it acts
};

} // namespace platform

// Sees to it that a keymap is put right again, however the program ends.
#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/X11/XKeymap.h"

#include <stop_token>

namespace platform {

// A process beside this one, with a connection of its own to the X server. When this one ends without having
// let the guard go, killed for instance, the guard waits until programs have read what was typed, and gives
// the keys their meanings. It ignores every signal that can be ignored. A display has one guard at a time,
// whichever program's, so that no two lend the same keys. One thread.
class KeymapGuard
{
public:
    // Connects to the display that the environment names.
    KeymapGuard() = default;
    KeymapGuard(const KeymapGuard &) = delete;
    KeymapGuard &operator=(const KeymapGuard &) = delete;
    // Where the guard has not been let go, it acts.
    ~KeymapGuard();

    // Waits until no other program has a guard on the display, 5 s at most and not once it is to stop; says
    // whether that is so. Then none has before this one is gone.
    [[nodiscard]] bool takesTurn(const std::stop_token &stop);
    // Starts the process, which is to see to these meanings. False where there is none. REQUIRES: takesTurn()
    // was true.
    [[nodiscard]] bool start(const XKeyMeanings &meanings);
    // From now on to these: another program has changed the rest, which is left to it. What it changes within
    // the half second before the guard acts is lost. REQUIRES: no more than at the start.
    void change(const XKeyMeanings &meanings);
    // The keymap has been put right: the guard is to change nothing any more.
    void letGo();

private:
    [[nodiscard]] bool takeSelection(xcb_window_t window, xcb_atom_t turn);
    [[nodiscard]] std::vector<std::uint8_t> requestsFor(const XKeyMeanings &meanings);
    [[nodiscard]] bool fork(std::vector<std::uint8_t> requests);

    XConnection connection_; // the guard's; not used by this process any more
    FileDescriptor line_;    // what the guard listens at: closed without a word, it acts
};

} // namespace platform

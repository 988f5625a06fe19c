// Waiting until programs have read the keys that were posted.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

#include <stop_token>

namespace platform {

// Programs look keys up in the keymap of the moment in which they read them, so what they mean must not
// change before. Waits until the program that has the focus has read all events that were sent to it: it is
// asked for a sign of life, as window managers do (_NET_WM_PING), and answers such messages and keys in their
// order. False: it did not answer within 5 s, and its window is still there. A program that does not take
// part in that, such as xterm, is given 500 ms and taken to have read: on an idle computer it takes some
// milliseconds. Once a stop is requested, whatever is being waited for counts as unread: the program may be
// this one, which reads nothing any more when it ends. One thread.
[[nodiscard]] bool awaitKeyReaders(XConnection &connection, const std::stop_token &stop);

} // namespace platform

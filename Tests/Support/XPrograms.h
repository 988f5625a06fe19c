// The connections that programs hold to an X server.
#pragma once

#include "Tests/Support/XClient.h"

#include <sys/types.h>

namespace testsupport {

// Ends every connection of a process to the server except the one that made the given window: to the program
// it looks as if the server had thrown it out. Says how many there were.
int endOtherConnections(const XClient &x, pid_t pid, xcb_window_t window);

} // namespace testsupport

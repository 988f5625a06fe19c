// Whether the user's system lets this program at its input.
#pragma once

namespace platform {

// Whether this program may post input here, and listen to it, without anybody being asked any more: where the
// user is to be asked for posting, while a session runs that was granted. Asks the system
// anew at each call, and nobody else; returns within some round trips to the display server. Any thread.
[[nodiscard]] bool isTrusted();

} // namespace platform

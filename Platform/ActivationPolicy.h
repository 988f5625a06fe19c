// Whether the desktop lists an application among the running ones.
#pragma once

namespace platform {

enum class ActivationPolicy {
    regular = 0,   // its windows are in the task bar or the dock, as those of most programs
    accessory = 1, // they are not: the program is reached in another way
};

} // namespace platform

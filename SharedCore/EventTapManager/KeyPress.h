// What is told of a key that was pressed.
#pragma once

#include "Platform/InputListener.h"

#include <cstdint>
#include <string>

namespace sharedcore {

struct KeyPress
{
    std::string characters; // UTF-8
    std::uint16_t keyCode = 0;
    bool isDelete = false;

    bool operator==(const KeyPress &) const = default;
};

// Any thread. The characters are at most the first 4 units of UTF-16, less where that would leave half of a
// pair, and none for Delete; half a pair by itself becomes U+FFFD. A key code below 0 or above 65,535 is a
// fatal error.
[[nodiscard]] KeyPress keyPressOf(const platform::ObservedEvent &event);

} // namespace sharedcore

// The press that waits for its release.
#pragma once

#include <cstdint>
#include <optional>

namespace platform {

// Both leave in one piece, so that the end of the program cannot come in between and leave a key held down.
class HeldKey
{
public:
    // Keeps the press of a virtual key code with the code that carries it, in place of any before. False
    // where nothing carries it.
    bool press(std::uint16_t virtualKeyCode, std::optional<std::uint16_t> carrier);

    // The carrier whose press and release are to be sent now; nothing where the release is not that of the
    // press that is kept.
    [[nodiscard]] std::optional<std::uint16_t> release(std::uint16_t virtualKeyCode);

private:
    std::uint16_t virtualKeyCode_ = 0;
    std::optional<std::uint16_t> carrier_;
};

} // namespace platform

// The presses by which this process types text on X11, so that it can tell them from those of the user.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <atomic>
#include <cstdint>

namespace platform {

// How often each key was pressed to type, since the process began. Holds no order, so no text.
inline std::array<std::atomic<std::uint32_t>, 256> ownPressCounts{};

// Any thread. To be called before the press is sent.
inline void countOwnPress(xcb_keycode_t key)
{
    ++ownPressCounts.at(key);
}

// One listener's account of the presses that it has seen of these. The server tells everybody of every press,
// so as many of a key as were counted are the process's own, whenever they are read. One thread.
class OwnPresses
{
public:
    // Those that were counted before are none that will be seen.
    OwnPresses()
    {
        for (std::size_t key = 0; key < seen_.size(); ++key) {
            seen_.at(key) = ownPressCounts.at(key);
        }
    }

    // Whether a press that came is one of these; the next one is another.
    [[nodiscard]] bool take(xcb_keycode_t key)
    {
        const bool isOwn = seen_.at(key) != ownPressCounts.at(key);
        seen_.at(key) += isOwn ? 1 : 0;
        return isOwn;
    }

private:
    std::array<std::uint32_t, 256> seen_{};
};

} // namespace platform

// What a Wayland client sees of the input while it has the focus and the pointer.
#pragma once

#include "Tests/Support/Wayland/WaylandClient.h"

#include <xkbcommon/xkbcommon.h>

#include <QString>

#include <chrono>
#include <vector>

namespace testsupport {

// One event of the pointer or the keyboard.
struct WaylandEvent
{
    enum class Kind { pointerEnter, motion, axis, axisSource, axisStop, keymap, focus, blur, key, modifiers };

    Kind kind = Kind::motion;
    double x = 0;           // of the pointer in the window
    double y = 0;           // the same; the distance of an axis
    std::uint32_t code = 0; // the key's evdev code; the axis; its source; the locked and pressed modifiers
    bool isDown = false;    // of a key
    xkb_keysym_t symbol = XKB_KEY_NoSymbol; // that the client's keymap and modifiers give a key
    QString text;                           // that it types; a keymap's text
    std::uint32_t time = 0;                 // milliseconds of the sender's clock
    std::chrono::steady_clock::time_point seenAt;
};

// Records everything from the moment it is made. One thread at a time.
class WaylandInput
{
public:
    // REQUIRES: the client outlives it.
    explicit WaylandInput(const WaylandClient &client);
    WaylandInput(const WaylandInput &) = delete;
    WaylandInput &operator=(const WaylandInput &) = delete;
    ~WaylandInput();

    // Everything seen since it was made or cleared, oldest first. Never waits.
    [[nodiscard]] const std::vector<WaylandEvent> &events();
    [[nodiscard]] std::vector<WaylandEvent> events(WaylandEvent::Kind kind);
    void clear();

    [[nodiscard]] wl_seat *seat() const { return seat_; }

private:
    WaylandEvent &add(WaylandEvent::Kind kind);
    void setCapabilities(std::uint32_t capabilities);
    void readKeymap(int file, std::uint32_t size);
    void addKey(std::uint32_t time, std::uint32_t key, std::uint32_t state);
    void addModifiers(std::uint32_t depressed, std::uint32_t latched, std::uint32_t locked,
                      std::uint32_t group);

    static const wl_seat_listener seatListener;
    static const wl_pointer_listener pointerListener;
    static const wl_keyboard_listener keyboardListener;

    const WaylandClient &client_;
    wl_seat *seat_;
    wl_pointer *pointer_ = nullptr;
    wl_keyboard *keyboard_ = nullptr;
    xkb_context *context_;
    xkb_keymap *keymap_ = nullptr;
    xkb_state *state_ = nullptr;
    std::vector<WaylandEvent> events_;
};

} // namespace testsupport

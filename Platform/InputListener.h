// The service that lets a program see the input of the whole session, and change none of it. It is apart from
// Platform.h, in a library of its own: a program that does not listen loads none of what listening needs.
#pragma once

#include "Platform/InputEvent.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace platform {

// What can be seen. The values are the numbers by which a mask counts.
enum class ObservedKind : unsigned {
    mouseMoved = 5,
    leftMouseDragged = 6,
    rightMouseDragged = 7,
    keyDown = 10,      // of every key but the modifiers; one that is held comes once
    flagsChanged = 12, // a modifier key goes down
    otherMouseDragged = 27,
};

// A bit for each kind.
using EventMask = std::uint64_t;

[[nodiscard]] constexpr EventMask maskOf(ObservedKind kind)
{
    return EventMask{1} << static_cast<unsigned>(kind);
}

inline constexpr EventMask allPointerKinds =
    maskOf(ObservedKind::mouseMoved) | maskOf(ObservedKind::leftMouseDragged) |
    maskOf(ObservedKind::rightMouseDragged) | maskOf(ObservedKind::otherMouseDragged);
inline constexpr EventMask allKeyKinds = maskOf(ObservedKind::keyDown) | maskOf(ObservedKind::flagsChanged);

struct ObservedEvent
{
    ObservedKind kind = ObservedKind::mouseMoved;
    // Of the kinds with a pointer: where it is, its origin at the top left of the desktop. A system that does
    // not tell answers with a location of its own that follows the pointer's steps.
    PointerLocation location = {};
    // Of the kinds with a key: a code of the common Apple keyboard table; a key without one has 256 and more.
    std::int64_t virtualKeyCode = 0;
    // What the key types, by the layout, the modifiers and the keys before it; empty where it types nothing.
    std::u16string characters = {};

    bool operator==(const ObservedEvent &) const = default;
};

// One look at the session's input. Belongs to the thread that made it, and ends with it. One that the system
// has ended stays silent.
class InputTap
{
public:
    InputTap() = default;
    InputTap(const InputTap &) = delete;
    InputTap &operator=(const InputTap &) = delete;
    virtual ~InputTap() = default;

    // From now on events are delivered, or none any more, not even those that have happened already.
    virtual void setEnabled(bool isEnabled) = 0;
};

// Any thread.
class InputListener
{
public:
    // Comes from the event loop of the tap's thread, with one event at a time. It may disable or destroy the
    // tap.
    using Handler = std::function<void(const ObservedEvent &)>;

    InputListener() = default;
    InputListener(const InputListener &) = delete;
    InputListener &operator=(const InputListener &) = delete;
    virtual ~InputListener() = default;

    // See Trust.h.
    [[nodiscard]] virtual bool isTrusted() = 0;

    // A tap that delivers the kinds of the mask once it is enabled; nothing where none can be made. Returns
    // within the round trips that it needs. REQUIRES: the calling thread has a Qt event loop.
    [[nodiscard]] virtual std::unique_ptr<InputTap> makeTap(EventMask mask, Handler handler) = 0;

    // The one that is installed; where none is, the operating system's.
    [[nodiscard]] static InputListener &current();
};

// Makes `listener` the current one for as long as the installation lives; the one before comes back after it.
// REQUIRES: no other thread uses the current one while this is made or goes.
class InputListenerInstallation
{
public:
    explicit InputListenerInstallation(InputListener &listener);
    InputListenerInstallation(const InputListenerInstallation &) = delete;
    InputListenerInstallation &operator=(const InputListenerInstallation &) = delete;
    ~InputListenerInstallation();

private:
    InputListener *previous_;
};

// That of the operating system.
[[nodiscard]] std::unique_ptr<InputListener> makeNativeInputListener();

} // namespace platform

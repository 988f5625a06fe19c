// The service that puts synthetic input into the stream of events that the session sees.
#pragma once

#include "Platform/InputEvent.h"

#include <QString>

#include <optional>

namespace platform {

// Why a way to post cannot be used now, and what the user can do about it. One English sentence each, for
// trouble-shooting; both are empty where nothing is in the way.
struct Obstacle
{
    QString reason;
    QString remedy;

    bool operator==(const Obstacle &) const = default;
};

// Main thread. A call returns within the round trips to the display server that it needs; nothing is retried
// inside a call. Failure is a value: the caller goes on.
class InputPoster
{
public:
    InputPoster() = default;
    InputPoster(const InputPoster &) = delete;
    InputPoster &operator=(const InputPoster &) = delete;
    virtual ~InputPoster() = default;

    // The user is there, and means to have input posted from now on: what needs the user's leave asks for it.
    // Returns at once; the answer shows in isReady().
    virtual void prepare() {}

    // Finds out whether the poster could work, without asking the user. Returns at once; the answer shows in
    // isOpen(), and in isWaiting() while it is awaited.
    virtual void probe() {}

    // Where the pointer is; nothing where the system cannot be asked now. A system that never tells answers
    // with a location of its own that follows the moves posted, so that steps and returns cancel out.
    [[nodiscard]] virtual std::optional<PointerLocation> pointerLocation() = 0;

    // Makes the event and posts it. False: it could not be made or there is nobody to post it to, and nothing
    // was posted. True says that it was handed over, not that anybody acted on it.
    //
    // A key that is pressed is released, whatever happens: a press takes effect together with its release,
    // and one whose release never comes is never seen by anybody.
    virtual bool post(const InputEvent &event) = 0;

    // False once the way to the system is lost; such a poster stays useless and is replaced.
    [[nodiscard]] virtual bool isOpen() const = 0;

    // True when a post would be handed over now. An open poster that is not ready waits for somebody's
    // answer, or tries again by itself at a later post.
    [[nodiscard]] virtual bool isReady() const { return isOpen(); }

    // True while somebody is being asked whose answer may make the poster ready.
    [[nodiscard]] virtual bool isWaiting() const { return false; }

    // What keeps the poster from being open or ready.
    [[nodiscard]] virtual Obstacle obstacle() const { return {}; }
};

} // namespace platform

// The service that puts synthetic input into the stream of events that the session sees.
#pragma once

#include "Platform/InputEvent.h"

#include <optional>

namespace platform {

// Main thread. A call returns within the round trips to the display server that it needs; nothing is retried
// inside a call. Failure is a value: the caller goes on.
class InputPoster
{
public:
    InputPoster() = default;
    InputPoster(const InputPoster &) = delete;
    InputPoster &operator=(const InputPoster &) = delete;
    virtual ~InputPoster() = default;

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
};

} // namespace platform

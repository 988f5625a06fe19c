// Posts input on Wayland compositors that let a program have a pointer and a keyboard of its own.
#pragma once

#include "Platform/InputPoster.h"
#include "Platform/Linux/HeldKey.h"
#include "Platform/Linux/VirtualPointer.h"
#include "Platform/Linux/Wayland/VirtualKeyboard.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"

#include <memory>

struct zwlr_virtual_pointer_v1;

namespace platform {

// Speaks zwlr_virtual_pointer_v1 and zwp_virtual_keyboard_v1. The place of the pointer on the screen is known
// to nobody but the compositor: locations are counted from where the pointer was when the poster was made, in
// whole pixels, and a move posts the step to the next one. The Command keys (virtual key codes 55 and 54) are
// carried by keys without a meaning, and other keys cannot be made. A scroll is a smooth one, positive
// downwards.
//
// A post never waits. Main thread of a Qt application.
class WlrootsInputPoster final : public InputPoster
{
public:
    // Whether a compositor answers that offers what a poster needs. Adds nothing to the seat, where its
    // clients would see a pointer come and go. Waits as long as create() does. Any thread.
    [[nodiscard]] static bool isOffered();
    // Nothing where no compositor answers, or it lacks one of the protocols; `why` then says so. Waits at
    // most 200 ms for a compositor that accepts connections and says nothing.
    [[nodiscard]] static std::unique_ptr<InputPoster> create(Obstacle &why);
    ~WlrootsInputPoster() override;

    std::optional<PointerLocation> pointerLocation() override;
    bool post(const InputEvent &event) override;
    bool isOpen() const override { return connection_.isOpen() && !globals_->isAnythingBoundGone(); }
    Obstacle obstacle() const override;

private:
    WlrootsInputPoster();

    [[nodiscard]] Obstacle open();

    bool postEvent(const MouseMoved &event);
    bool postEvent(const KeyEvent &event);
    bool postEvent(const ScrollPixels &event);

    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    std::optional<SeatKeyboard> seat_;
    std::optional<VirtualKeyboard> keyboard_;
    WaylandObject<zwlr_virtual_pointer_v1> pointer_;
    VirtualPointer virtualPointer_;
    HeldKey heldKey_;
};

} // namespace platform

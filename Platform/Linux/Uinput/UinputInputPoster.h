// Posts input through an input device that the kernel makes for the program.
#pragma once

#include "Platform/InputPoster.h"
#include "Platform/Linux/HeldKey.h"
#include "Platform/Linux/SessionSilentKeys.h"
#include "Platform/Linux/Uinput/UinputFile.h"
#include "Platform/Linux/VirtualPointer.h"

#include <initializer_list>

namespace platform {

// One virtual mouse with the silent keys. It works in every session, wherever the user may write to
// /dev/uinput; the session takes the device in some moments after it was made, and does not see what was
// posted before, so it is made at the engine's start. It exists as long as the poster.
//
// The kernel knows no place of the pointer: locations are counted from where the pointer was when the device
// was made, in whole pixels, and a move is the step to the next one. The Command keys (virtual key codes 55
// and 54) are carried by keys without a meaning, and other keys cannot be made. A scroll is half a horizontal
// notch for up to 30 pixels, to the right for a positive one: libinput holds back what is less than half a
// notch (60 of 120 units), and most views stand at their left end, where the pair cancels out, or do not
// scroll sideways at all. Main thread.
class UinputInputPoster final : public InputPoster
{
public:
    // Nothing where the device cannot be made; `why` then says so.
    [[nodiscard]] static std::unique_ptr<InputPoster> create(Obstacle &why);
    // The same with a file and keys of the caller's.
    [[nodiscard]] static std::unique_ptr<InputPoster> create(std::unique_ptr<UinputFile> file,
                                                             SilentKeySource silentKeys, Obstacle &why);
    ~UinputInputPoster() override;

    std::optional<PointerLocation> pointerLocation() override;
    bool post(const InputEvent &event) override;
    bool isOpen() const override { return isOpen_; }

private:
    struct Value
    {
        int type;
        int code;
        int value;
    };

    UinputInputPoster(std::unique_ptr<UinputFile> file, SilentKeySource silentKeys);

    [[nodiscard]] Obstacle makeDevice();
    [[nodiscard]] int describeDevice();

    bool postEvent(const MouseMoved &event);
    bool postEvent(const KeyEvent &event);
    bool postEvent(const ScrollPixels &event);
    // Writes the values as what happened at one time.
    bool report(std::initializer_list<Value> values);

    std::unique_ptr<UinputFile> file_;
    SilentKeySource silentKeys_;
    VirtualPointer pointer_;
    HeldKey heldKey_;
    bool isOpen_ = false;
};

} // namespace platform

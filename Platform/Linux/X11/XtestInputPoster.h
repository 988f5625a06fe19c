// Posts input on X11 with the XTEST extension.
#pragma once

#include "Platform/InputPoster.h"
#include "Platform/Linux/HeldKey.h"
#include "Platform/Linux/X11/SmoothScroll.h"
#include "Platform/Linux/X11/XConnection.h"

#include <QObject>

#include <memory>

namespace platform {

// A move goes to the pixel of the root window that the point names. The Command keys (virtual key codes 55
// and 54) are carried by keys without a meaning, and other keys cannot be made. A scroll pixel is a fraction
// of a notch where a pointer has a scroll axis, sent from the event loop 20 ms later where the device is not
// the one that the user moved last; else it is a horizontal notch: right for +1 and left for -1, since most
// views stand at their left end, where the pair cancels out, or do not scroll sideways at all. Main thread.
class XtestInputPoster final : public InputPoster
{
public:
    // Nothing where there is no X server, it has no XTEST, or it is Xwayland; `why` then says so.
    [[nodiscard]] static std::unique_ptr<InputPoster> create(Obstacle &why);

    std::optional<PointerLocation> pointerLocation() override;
    bool post(const InputEvent &event) override;
    bool isOpen() const override { return connection_.isOpen(); }

private:
    explicit XtestInputPoster() = default;

    [[nodiscard]] bool hasXtest();
    void prepareConnection();

    bool postEvent(const MouseMoved &event);
    bool postEvent(const KeyEvent &event);
    bool postEvent(const ScrollPixels &event);

    void beginScroll();
    void scrollLater(std::int32_t pixels);
    bool sendPressAndRelease(const KeyEvent &release);
    void queueScrollNotches(std::int32_t notches);
    void queueFakeInput(std::uint8_t type, std::uint8_t detail, std::int16_t x = 0, std::int16_t y = 0);

    XConnection connection_;
    HeldKey heldKey_;
    // The axis of the last scroll, so that the return goes through the same one. It is looked up again for
    // each scroll away from the start, since pointers come and go.
    std::optional<ScrollAxis> scrollAxis_;
    std::int64_t scrolledPixels_ = 0;
    QObject laterScrolls_; // what is still to be sent goes with it
};

} // namespace platform

// Sees the input of a Wayland session, where the user may read the devices.
#pragma once

#include "Platform/Linux/Listening/Delivery.h"
#include "Platform/Linux/Listening/HeldButtons.h"
#include "Platform/Linux/Listening/KeyText.h"
#include "Platform/Linux/Listening/SeatDevices.h"
#include "Platform/Linux/Listening/SessionActivity.h"
#include "Platform/Linux/Listening/SessionView.h"

#include <QSocketNotifier>

#include <optional>
#include <set>

namespace platform {

// A compositor tells nobody of other programs' input, so the kernel's devices are read beside it. What keys
// type is worked out with the keymap of the session from the keys that went down and up since the tap was
// made; a layout that is chosen with the pointer is not seen. The pointer's location begins at the middle of
// the desktop and follows the devices' steps, as libinput makes them out, up to the desktop's edges; a device
// that tells places, such as a virtual machine's, corrects it. While another session has the seat the devices
// are closed, since what comes from them is that user's.
class LibinputTap final : public InputTap
{
public:
    // Whether any keyboard or pointer of the seat may be read.
    [[nodiscard]] static bool isPossible();
    // Nothing where it is not possible, for the devices that the mask is about.
    [[nodiscard]] static std::unique_ptr<InputTap> create(EventMask mask, InputListener::Handler handler,
                                                          std::unique_ptr<SessionView> session);

    void setEnabled(bool isEnabled) override;

private:
    LibinputTap(EventMask mask, InputListener::Handler handler, std::unique_ptr<SessionView> session);

    [[nodiscard]] bool open();
    void openDevices();
    void placePointer();
    void takeIn();
    [[nodiscard]] std::optional<ObservedEvent> take(libinput_event *event);
    [[nodiscard]] std::optional<ObservedEvent> takeKey(libinput_event_keyboard *event);
    [[nodiscard]] ObservedEvent takeStep(libinput_event_pointer *event);
    [[nodiscard]] ObservedEvent takePlace(libinput_event_pointer *event);
    void takeButton(libinput_event_pointer *event);
    void followKeymap();
    [[nodiscard]] ObservedEvent moveTo(PointerLocation location);

    Delivery delivery_;
    std::unique_ptr<SessionView> session_;
    KeyText text_;
    PointerLocation location_;
    bool isPlaced_ = false; // on the desktop
    HeldButtons held_;
    std::set<std::uint32_t> otherButtons_; // that are held
    SeatDevices devices_;
    std::optional<QSocketNotifier> notifier_;
    SessionActivity activity_{[this] { openDevices(); }};
};

} // namespace platform

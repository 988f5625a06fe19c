// What another program sees of the input on a display.
#pragma once

#include "Tests/Support/XClient.h"

#include <QPoint>

#include <chrono>
#include <map>

namespace testsupport {

// One XInput raw event: what came from a device, before anything was made of it.
struct XRawEvent
{
    enum class Kind { motion, keyPress, keyRelease, buttonPress, buttonRelease };

    Kind kind = Kind::motion;
    std::uint32_t detail = 0;        // the key code or the button
    std::map<int, double> valuators; // by axis: 0 is x and 1 is y; the values as the device gave them
    std::uint16_t sourceDevice = 0;  // the device that it came from
    std::uint32_t serverTime = 0;    // milliseconds of the server's clock
    std::chrono::steady_clock::time_point seenAt; // when this observer fetched it

    [[nodiscard]] double dx() const { return valuator(0); }
    [[nodiscard]] double dy() const { return valuator(1); }
    // The value of an axis, 0 where the event has none.
    [[nodiscard]] double valuator(int axis) const;
};

// Listens to raw events of all master devices on the root window from the moment it is made; no grab of
// another client hides them. A connection of its own; one thread at a time.
class XObserver
{
public:
    // Check isOpen(): false without a server or without XInput 2.2.
    explicit XObserver(const QString &display);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] const XClient &client() const { return client_; }

    // Everything seen since the observer was made or cleared, oldest first. Never waits.
    [[nodiscard]] const std::vector<XRawEvent> &events();
    [[nodiscard]] std::vector<XRawEvent> events(XRawEvent::Kind kind);
    void clear();

    // Where the pointer is on the root window.
    [[nodiscard]] QPoint pointer() const;
    // Whether any key or pointer button is held down, as the server sees it.
    [[nodiscard]] bool isAnythingHeldDown() const;

private:
    void select();
    void take(const xcb_generic_event_t &event);

    XClient client_;
    std::uint8_t extension_ = 0;
    bool isOpen_ = false;
    std::vector<XRawEvent> events_;
};

} // namespace testsupport

// A physical input device of a private X server, moved by the test as a hand would.
#pragma once

#include <QString>

namespace testsupport {

// Speaks to the server's `inputtest` driver. One thread at a time. Each call returns when the server has
// handled the event.
class InputTestDevice
{
public:
    // The driver's socket; check isOpen().
    explicit InputTestDevice(const QString &socketPath);
    ~InputTestDevice();

    InputTestDevice(const InputTestDevice &) = delete;
    InputTestDevice &operator=(const InputTestDevice &) = delete;

    [[nodiscard]] bool isOpen() const { return isOpen_; }

    // A pointer device moves by pixels.
    void moveBy(int dx, int dy);
    // A keyboard's key, by its evdev code, goes down or comes up.
    void press(int key) { postKey(key, true); }
    void release(int key) { postKey(key, false); }
    // A pointer device's vertical wheel turns; 120 units are a notch downwards.
    void turnWheelBy(int units);

private:
    void postKey(int key, bool isDown);
    void moveAxes(int firstAxis, int first, int second);
    [[nodiscard]] bool connectTo(const QString &socketPath);
    [[nodiscard]] bool greet();
    [[nodiscard]] bool receive(unsigned type) const;
    void waitForServer();

    int descriptor_;
    bool isOpen_ = false;
};

} // namespace testsupport

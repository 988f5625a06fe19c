// Sees where the pointer goes and what is typed, in the whole session.
#pragma once

#include "Platform/InputListener.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sharedcore {

// Only listens: what other programs get is the same. Callbacks come one event at a time from the event loop
// of the thread that started tracking, and nothing of an event is kept once its callback has returned. A
// callback may start, stop or destroy the manager. Takes no locks: one thread, which has a Qt event loop.
//
// Where the user's system does not let the program at its input, the two start operations say false and
// nothing else; see checkAccessibility(). Other failures, and successes, are told on the standard output.
class EventTapManager
{
public:
    // Where the pointer is, in points from the top left of the desktop.
    using MouseCallback = std::function<void(platform::PointerLocation)>;
    // What a key press types, at most 4 units of UTF-16, as UTF-8; its virtual key code; and whether it is
    // the Delete (backspace) key, which types nothing.
    using KeyCallback =
        std::function<void(const std::string &characters, std::uint16_t keyCode, bool isDelete)>;

    EventTapManager() = default;
    EventTapManager(const EventTapManager &) = delete;
    EventTapManager &operator=(const EventTapManager &) = delete;
    ~EventTapManager();

    // From now on the callback is told of each move of the pointer, with no button held or with the left or
    // the right one. A second start replaces the callback, and delivers each event to it once more.
    bool startMouseTracking(MouseCallback callback);
    // From now on the callback is told of each key that is pressed, modifiers apart, and of none that this
    // program types itself by typeText(). The same for a second start.
    bool startKeyTracking(KeyCallback callback);

    // Whether the program may listen here. Asks nobody.
    [[nodiscard]] bool checkAccessibility() const;

    // Has the system ask the user, where it has a question for it. Returns at once and tells no answer: what
    // checkAccessibility() says later does. REQUIRES: a platform is installed (Platform.h), in whose session
    // the program will post. As the two that follow: main thread, and an application object lives.
    static void requestAccessibility();
    // Open the page of the system's settings where the user can allow it. What becomes of it is not told.
    static void openAccessibilitySettings();
    static void openInputMonitoringSettings();

    // Types a text, UTF-8, into whatever program has the focus. Modifiers that the user holds make no
    // shortcuts of it, but where the desktop's portal is the only way to type. Any thread; blocks it for 10
    // ms a character. On the main thread, with the focus in a window of this program, the event loop goes on
    // meanwhile, so that the window gets the text (TextTyping.h, whose typeText() tells also whether all of
    // it arrived).
    static void typeText(std::string_view text);

    // Stops what was started last of each kind, for good: only another start goes on. What was started before
    // that is not stopped.
    void stopAll();

private:
    void replace(std::unique_ptr<platform::InputTap> &tap, platform::EventMask mask,
                 platform::InputListener::Handler handler);
    void observePointer(const platform::ObservedEvent &event) const;
    void observeKey(const platform::ObservedEvent &event) const;

    std::unique_ptr<platform::InputTap> mouseTap_;
    std::shared_ptr<const MouseCallback> mouseCallback_;
    std::unique_ptr<platform::InputTap> keyTap_;
    std::shared_ptr<const KeyCallback> keyCallback_;
    std::vector<std::unique_ptr<platform::InputTap>> earlierTaps_; // which still deliver
};

} // namespace sharedcore

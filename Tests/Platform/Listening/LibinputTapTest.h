// What the tests of listening to the kernel's devices have in common.
#pragma once

#include "Platform/Linux/Listening/LibinputTap.h"

#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Support/Evdev/MockInputDevices.h"
#include "Tests/Support/Eventually.h"

#include <linux/input-event-codes.h>

#include <gmock/gmock.h>

#include <cmath>

namespace platform {

// A session in the test's hands.
class FakeSession final : public SessionView
{
public:
    [[nodiscard]] QByteArray changedKeymap() override { return std::exchange(keymap, {}); }
    [[nodiscard]] QRectF desktop() override { return area; }

    QByteArray keymap;
    QRectF area{0, 0, 1000, 800};
};

inline QByteArray keymapOf(const char *layout, const char *options = "")
{
    const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const xkb_rule_names names{"evdev", "pc105", layout, "", options};
    const XkbPointer<xkb_keymap> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
    return {text.get()};
}

// Devices that are made up, and what is seen of them.
class LibinputTapTest : public testing::Test
{
protected:
    LibinputTapTest() { qputenv("LC_ALL", "C.UTF-8"); }

    std::unique_ptr<InputTap> enabledTap(EventMask mask, const char *layout = "us", const char *options = "")
    {
        auto ownSession = std::make_unique<FakeSession>();
        session = ownSession.get();
        session->keymap = keymapOf(layout, options);
        auto tap = LibinputTap::create(mask, events.handler(), std::move(ownSession));
        if (tap) {
            tap->setEnabled(true);
        }
        return tap;
    }

    // Presses and releases keys one after the other; a negative one is only released, and one above 1000 is
    // only pressed.
    void play(const QString &keyboard, std::initializer_list<int> keys)
    {
        std::vector<testsupport::MockInputDevices::Event> list;
        const auto add = [&list](int key, int value) {
            list.push_back({EV_KEY, static_cast<std::uint16_t>(key), value});
            list.push_back({EV_SYN, SYN_REPORT, 0});
        };
        for (const int key : keys) {
            if (key >= 0) {
                add(key % 1000, 1);
            }
            if (key < 1000) {
                add(std::abs(key), 0);
            }
        }
        devices.play(keyboard, list);
    }

    [[nodiscard]] bool comes(std::size_t count)
    {
        return testsupport::eventually([&] { return events.size() >= count; }, std::chrono::seconds(20));
    }

    testsupport::MockInputDevices devices;
    ObservedEvents events;
    FakeSession *session = nullptr;
};

// For play(): a key that is only pressed.
constexpr int hold(int key)
{
    return key + 1000;
}

} // namespace platform

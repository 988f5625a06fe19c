// What the tests of listening have in common.
#pragma once

#include "Tests/Platform/Listening/ObservedEvents.h"
#include "Tests/Platform/X11/XtestPosterTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/PrivateXvfb.h"

#include <gmock/gmock.h>

#include <linux/input-event-codes.h>

namespace platform {

// A private X server, an input listener on it, and the hands of its user.
class XListeningTest : public testing::Test
{
protected:
    XListeningTest();
    ~XListeningTest() override;

    void SetUp() override { ASSERT_TRUE(server.isOpen()); }

    // Post through XTEST, and are done when the server has handled it. Keys by their evdev codes.
    void press(int key) const { post(XCB_KEY_PRESS, key + 8); }
    void release(int key) const { post(XCB_KEY_RELEASE, key + 8); }
    void type(std::initializer_list<int> keys) const;
    void hold(int button) const { post(XCB_BUTTON_PRESS, button); }
    void letGo(int button) const { post(XCB_BUTTON_RELEASE, button); }
    void moveTo(int x, int y) const;
    // As a user does with setxkbmap.
    void useLayout(const QStringList &words);

    // An enabled tap, whose events go where they are waited for.
    [[nodiscard]] std::unique_ptr<InputTap> tapInto(ObservedEvents &events, EventMask mask) const;

    // Types one more key, after which those before it have come.
    void finishKeys(const ObservedEvents &events) const;
    const ObservedEvent escape = keyDown(53, u"\x1b");

    testsupport::PrivateRuntime runtime;
    testsupport::PrivateXvfb server{runtime};
    testsupport::ScopedDisplay scope{server.display()};
    testsupport::XClient user{server.display()};
    std::unique_ptr<InputListener> listener = makeNativeInputListener();

private:
    void post(std::uint8_t type, int detail, int x = 0, int y = 0) const;

    QByteArray compositorBefore_;
};

} // namespace platform

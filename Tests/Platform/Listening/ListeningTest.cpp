#include "Tests/Platform/Listening/ListeningTest.h"

#include <xcb/xtest.h>

namespace platform {

using testsupport::ChildProcess;

XListeningTest::XListeningTest()
    : compositorBefore_(qgetenv("WAYLAND_DISPLAY"))
{
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("LC_ALL", "C.UTF-8");
}

XListeningTest::~XListeningTest()
{
    qputenv("WAYLAND_DISPLAY", compositorBefore_);
}

void XListeningTest::type(std::initializer_list<int> keys) const
{
    for (const int key : keys) {
        press(key);
        release(key);
    }
}

void XListeningTest::moveTo(int x, int y) const
{
    post(XCB_MOTION_NOTIFY, 0, x, y);
}

void XListeningTest::useLayout(const QStringList &words)
{
    ChildProcess setter(QStringLiteral("setxkbmap"),
                        QStringList{QStringLiteral("-rules"), QStringLiteral("evdev"),
                                    QStringLiteral("-model"), QStringLiteral("pc105"),
                                    QStringLiteral("-layout")} +
                            words,
                        runtime.environment());
    ASSERT_THAT(setter.waitForExit(std::chrono::seconds(30)), testing::Optional(0))
        << setter.standardError().constData();
}

void XListeningTest::finishKeys(const ObservedEvents &events) const
{
    type({KEY_ESC});
    ASSERT_TRUE(testsupport::eventually([&] { return events.size() > 0 && events.all().back() == escape; }));
}

std::unique_ptr<InputTap> XListeningTest::tapInto(ObservedEvents &events, EventMask mask) const
{
    auto tap = listener->makeTap(mask, events.handler());
    if (tap) {
        tap->setEnabled(true);
    }
    return tap;
}

void XListeningTest::post(std::uint8_t type, int detail, int x, int y) const
{
    xcb_test_fake_input(user.get(), type, static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME, user.root(),
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    user.sync();
}

} // namespace platform

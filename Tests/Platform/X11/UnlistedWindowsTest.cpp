#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"
#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/WindowManager.h"
#include "Tests/Support/XClient.h"
#include "Tests/Support/XWindows.h"

#include <QGuiApplication>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>

namespace platform {

namespace {

using testsupport::eventually;

class UnlistedWindowsTest : public testing::Test
{
protected:
    [[nodiscard]] bool hasState(const QWindow &shown, const char *name) const
    {
        return std::ranges::count(x.cardinals(static_cast<xcb_window_t>(shown.winId()), "_NET_WM_STATE"),
                                  x.atom(name)) > 0;
    }

    // Whether the window comes to be on the screen, and out of the lists or in them.
    [[nodiscard]] bool becomes(const QWindow &shown, bool isListed) const
    {
        return eventually([&] {
            const auto managed = testsupport::managedWindows(x);
            return std::ranges::count(managed, shown.winId()) == 1 &&
                   hasState(shown, "_NET_WM_STATE_SKIP_TASKBAR") != isListed &&
                   hasState(shown, "_NET_WM_STATE_SKIP_PAGER") != isListed;
        });
    }

    testsupport::WindowManager manager{testsupport::sessionRuntime()};
    testsupport::XClient x{qEnvironmentVariable("DISPLAY")};
    std::unique_ptr<Platform> native = makeNativePlatform();
    PlatformInstallation installation{*native};
    std::unique_ptr<MenuBarServices> services = makeNativeMenuBar();
    QWindow window;
};

TEST_F(UnlistedWindowsTest, AreThoseThatAreShownLater)
{
    ASSERT_TRUE(services->becomeAccessory());
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    for (int i = 0; i < 3; ++i) {
        window.show();
        EXPECT_TRUE(becomes(window, false));
        window.hide();
        EXPECT_TRUE(eventually([&] { return testsupport::managedWindows(x).empty(); }));
    }
    QWindow other;
    other.setFlag(Qt::WindowStaysOnTopHint);
    native->present(other, {});
    EXPECT_TRUE(becomes(other, false));
    EXPECT_TRUE(hasState(other, "_NET_WM_STATE_ABOVE"));
}

TEST_F(UnlistedWindowsTest, AreThoseThatAreShownAlready)
{
    window.show();
    ASSERT_TRUE(becomes(window, true));
    ASSERT_TRUE(services->becomeAccessory());
    EXPECT_TRUE(becomes(window, false));
}

TEST_F(UnlistedWindowsTest, AreListedAgainInARegularProgram)
{
    ASSERT_TRUE(services->becomeAccessory());
    window.show();
    ASSERT_TRUE(becomes(window, false));
    native->setActivationPolicy(ActivationPolicy::regular);
    EXPECT_TRUE(becomes(window, true));
    window.hide();
    ASSERT_TRUE(eventually([&] { return testsupport::managedWindows(x).empty(); }));
    window.show();
    EXPECT_TRUE(becomes(window, true));
}

} // namespace

} // namespace platform

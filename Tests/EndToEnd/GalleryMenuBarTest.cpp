// The gallery as a program that is in the menu bar only.

#include "Tests/EndToEnd/GalleryPanelTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"

#include <algorithm>

using namespace testsupport;

namespace endtoend {

namespace {

class GalleryMenuBarTest : public PanelDesktopTest
{
protected:
    void SetUp() override
    {
        PanelDesktopTest::SetUp();
        gallery = std::make_unique<Gallery>(desktop, QStringList(QStringLiteral("--menu-bar")));
        ASSERT_TRUE(heartAppears());
    }

    [[nodiscard]] bool hasState(xcb_window_t window, const char *name) const
    {
        return std::ranges::count(desktop.x().cardinals(window, "_NET_WM_STATE"), desktop.x().atom(name)) > 0;
    }
    // Whether the window is, or comes to be, in no list.
    [[nodiscard]] bool isUnlisted(xcb_window_t window) const
    {
        return eventually([&] {
            return hasState(window, "_NET_WM_STATE_SKIP_TASKBAR") &&
                   hasState(window, "_NET_WM_STATE_SKIP_PAGER");
        });
    }
    [[nodiscard]] std::vector<xcb_window_t> windows() const
    {
        auto windows = managedWindows(desktop.x());
        std::erase_if(windows, [this](xcb_window_t window) {
            return processOf(desktop.x(), window) != gallery->process().pid();
        });
        return windows;
    }
};

} // namespace

TEST_F(GalleryMenuBarTest, HasNoWindowThatAListShows)
{
    EXPECT_TRUE(windows().empty());
    openPopover();
    EXPECT_TRUE(windows().empty()); // nor does the window manager know of the popover
    gallery->click("Show Gallery", "push button");
    EXPECT_TRUE(closes());
    ASSERT_TRUE(gallery->isUp());
    EXPECT_TRUE(isUnlisted(gallery->window()));
    ASSERT_TRUE(eventually([this] { return activeWindow(desktop.x()) == gallery->window(); }));

    close(desktop.x(), gallery->window());
    ASSERT_TRUE(eventually([this] { return windows().empty(); }));
    EXPECT_TRUE(gallery->process().isRunning());
    EXPECT_TRUE(heartAppears());
}

TEST_F(GalleryMenuBarTest, WithoutAPanelItsWindowComesWhenItIsOpenedAgain)
{
    panel.reset();
    Gallery again(desktop, {QStringLiteral("--menu-bar")});
    EXPECT_EQ(again.process().waitForExit(), 0);
    ASSERT_TRUE(gallery->isUp());
    EXPECT_TRUE(isUnlisted(gallery->window()));
}

} // namespace endtoend

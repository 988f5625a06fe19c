// The gallery's heart in the panel.

#include "Tests/EndToEnd/GalleryPanelTest.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

using namespace testsupport;

namespace endtoend {

void PanelDesktopTest::SetUp()
{
    ASSERT_TRUE(desktop.isOpen());
    panel = std::make_unique<StatusPanel>(desktop.runtime());
    ASSERT_TRUE(panel->isOpen());
}

QRect PanelDesktopTest::heart() const
{
    const auto picture = screenshot(desktop.x(), QRect(0, 0, 200, StatusPanel::height));
    QRegion ink;
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        const QPoint place(i % picture.width(), i / picture.width());
        if (picture.pixelColor(place).lightness() < 100) {
            ink += QRect(place, QSize(1, 1));
        }
    }
    const auto box = ink.boundingRect();
    return QRect(8, 8, 26, 26).contains(box.width(), box.height()) ? box : QRect();
}

bool PanelDesktopTest::heartAppears() const
{
    return eventually([this] { return !heart().isEmpty(); }, std::chrono::seconds(30));
}

void PanelDesktopTest::restartPanel()
{
    panel.reset();
    ASSERT_TRUE(eventually([this] { return heart().isEmpty(); }));
    panel = std::make_unique<StatusPanel>(desktop.runtime());
    ASSERT_TRUE(heartAppears());
}

bool PanelDesktopTest::beats() const
{
    const QRect corner(0, 0, 60, StatusPanel::height);
    const auto before = screenshot(desktop.x(), corner);
    return eventually([&] { return screenshot(desktop.x(), corner) != before; }, std::chrono::seconds(2));
}

std::vector<xcb_window_t> PanelDesktopTest::popovers() const
{
    return mappedWindowsTitled(desktop.x(), QStringLiteral("Heart — Gallery"));
}

QRect PanelDesktopTest::popoverArea() const
{
    const auto all = popovers();
    return all.empty() ? QRect() : clientArea(desktop.x(), all.front());
}

void PanelDesktopTest::openPopover()
{
    QRect place;
    ASSERT_TRUE(eventually([&] { return !(place = heart()).isEmpty(); }));
    gallery->user().click(place.center());
    ASSERT_TRUE(eventually([this] { return popovers().size() == 1; }));
    ASSERT_TRUE(eventually([this] { return isPointerTaken(desktop.x()); }));
}

bool PanelDesktopTest::closes() const
{
    return eventually([this] { return popovers().empty() && !isPointerTaken(desktop.x()); });
}

void GalleryPanelTest::SetUp()
{
    PanelDesktopTest::SetUp();
    gallery = std::make_unique<Gallery>(desktop);
    ASSERT_TRUE(gallery->isUp());
    gallery->showPage("Menu");
    gallery->click("Heart in the menu bar", "check box");
    ASSERT_TRUE(heartAppears());
    gallery->showPage("Card");
    ASSERT_TRUE(gallery->comesToShow("ModernCardView"));
}

TEST_F(GalleryPanelTest, TheHeartComesBackWithThePanelAndWithTheProgramAndGoesWithTheSwitch)
{
    restartPanel();
    gallery.reset();
    ASSERT_TRUE(eventually([this] { return heart().isEmpty(); }));
    gallery = std::make_unique<Gallery>(desktop);
    EXPECT_TRUE(heartAppears());
    ASSERT_TRUE(gallery->isUp());
    gallery->showPage("Menu");
    gallery->click("Heart in the menu bar", "check box");
    EXPECT_TRUE(eventually([this] { return heart().isEmpty(); }));
}

TEST_F(GalleryPanelTest, TheHeartBeatsUntilItIsToldToStandStill)
{
    EXPECT_TRUE(beats());
    gallery->showPage("Menu");
    gallery->click("Beating", "check box");
    EXPECT_TRUE(eventually([this] { return !beats(); }, std::chrono::seconds(20)));
    gallery->click("Beating", "check box");
    EXPECT_TRUE(eventually([this] { return beats(); }));
}

TEST_F(GalleryPanelTest, ThePageAndThePopoverShowTheSameHeart)
{
    gallery->showPage("Menu");
    gallery->click("Heart rate", "slider");
    ASSERT_TRUE(gallery->comesToHaveFocus("Heart rate"));
    gallery->user().press({XK_End});
    ASSERT_TRUE(gallery->comesToShow("180"));
    gallery->showPage("Card");
    ASSERT_TRUE(eventually([this] { return !gallery->shows(QStringLiteral("180")); }));
    openPopover();
    EXPECT_TRUE(gallery->comesToShow("180"));
    gallery->click("Heart rate", "slider");
    ASSERT_TRUE(gallery->comesToHaveFocus("Heart rate"));
    gallery->user().press({XK_Home});
    EXPECT_TRUE(gallery->comesToShow("30"));
    gallery->user().press({XK_Escape});
    ASSERT_TRUE(closes());
    gallery->showPage("Menu");
    EXPECT_TRUE(gallery->comesToShow("30"));
}

TEST_F(GalleryPanelTest, ThePagesCloseButtonIsSeenToAct)
{
    gallery->showPage("Menu");
    EXPECT_TRUE(gallery->comesToShow("Closed 0 times"));
    gallery->click("Close", "push button");
    EXPECT_TRUE(gallery->comesToShow("Closed once"));
}

TEST_F(GalleryPanelTest, ItsSmallestWindowHasRoomForAWholePopover)
{
    const auto window = gallery->window();
    resize(desktop.x(), window, smallestSize(desktop.x(), window));
    ASSERT_TRUE(eventually([&] { return clientArea(desktop.x(), window).size() == QSize(420, 560); }));
    gallery->showPage("Menu");
    const auto area = clientArea(desktop.x(), window);
    const auto close = gallery->place("Close", "push button");
    EXPECT_TRUE(area.contains(close));
    EXPECT_LT(gallery->place("Menu", "page tab").right(), close.right() + 16 - 320);
}

} // namespace endtoend

// The popover under the gallery's heart, on X11.

#include "Tests/EndToEnd/GalleryPanelTest.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <QDir>

#include <X11/keysym.h>

#include <csignal>

using namespace testsupport;

namespace endtoend {

namespace {

using GalleryPopoverTest = GalleryPanelTest;

const QColor blue(0, 0x7A, 0xFF); // the accent of a desktop that names none

bool shows(const QImage &picture, const QColor &color)
{
    for (int i = 0; i < picture.width() * picture.height(); ++i) {
        if (picture.pixelColor(i % picture.width(), i / picture.width()) == color) {
            return true;
        }
    }
    return false;
}

// Draws windows together, for as long as it lives.
class Compositor
{
public:
    explicit Compositor(Desktop &desktop)
        : x_(desktop.x())
        , process_(QStringLiteral("picom"),
                   {QStringLiteral("--backend"), QStringLiteral("xrender"), QStringLiteral("--config"),
                    QStringLiteral("/dev/null")},
                   desktop.environment())
    {}
    Compositor(const Compositor &) = delete;
    Compositor &operator=(const Compositor &) = delete;
    ~Compositor()
    {
        process_.sendSignal(SIGTERM);
        EXPECT_TRUE(eventually([this] { return !isThere(); }));
    }

    [[nodiscard]] bool isThere() const
    {
        const auto reply = xAnswer(xcb_get_selection_owner_reply, x_.get(),
                                   xcb_get_selection_owner(x_.get(), x_.atom("_NET_WM_CM_S0")));
        return reply && reply->owner != XCB_WINDOW_NONE;
    }

private:
    const XClient &x_;
    ChildProcess process_;
};

// A light window below the panel, for a shadow to be seen on.
std::shared_ptr<void> showGround(const XClient &x)
{
    constexpr std::uint32_t values[] = {0xC8D6E5, 1}; // the colour; and no window manager's
    const auto window = xcb_generate_id(x.get());
    xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, window, x.root(), 0, StatusPanel::height + 1, 480, 600,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, std::data(values));
    xcb_map_window(x.get(), window);
    x.sync();
    return {nullptr, [&x, window](void *) {
                xcb_destroy_window(x.get(), window);
                x.sync();
            }};
}

// Whether nobody else has them.
bool grabKeys(const XClient &x)
{
    const auto reply = xAnswer(
        xcb_grab_keyboard_reply, x.get(),
        xcb_grab_keyboard(x.get(), 0, x.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void releaseKeys(const XClient &x)
{
    xcb_ungrab_keyboard(x.get(), XCB_CURRENT_TIME);
    x.sync();
}

int depthOf(const XClient &x, xcb_window_t window)
{
    const auto reply = xAnswer(xcb_get_geometry_reply, x.get(), xcb_get_geometry(x.get(), window));
    return reply ? reply->depth : 0;
}

} // namespace

TEST_F(GalleryPopoverTest, OpensUnderTheHeart)
{
    const auto clicked = heart();
    openPopover();
    const auto area = popoverArea();
    EXPECT_EQ(area.width(), 320);
    EXPECT_GE(area.top(), clicked.center().y());
    EXPECT_LT(area.top(), StatusPanel::height + 32);
    EXPECT_LE(area.left(), clicked.center().x());
    EXPECT_TRUE(area.contains(gallery->place("Heart rate", "slider")));
    EXPECT_TRUE(area.contains(gallery->place("Quit", "push button")));
    EXPECT_TRUE(eventually([&] { return shows(screenshot(desktop.x(), area), blue); }));
}

TEST_F(GalleryPopoverTest, HasAnEdgeWhereWindowsAreNotBlended)
{
    openPopover();
    const auto area = popoverArea();
    QImage picture;
    ASSERT_TRUE(eventually([&] { return shows(picture = screenshot(desktop.x(), area), blue); }));
    const auto inside = picture.pixelColor(2, 200);
    for (const auto &place : {QPoint(0, 0), QPoint(319, 0), QPoint(0, 200), QPoint(319, 200),
                              QPoint(160, area.height() - 1), QPoint(0, area.height() - 1)}) {
        EXPECT_LT(picture.pixelColor(place).lightness(), inside.lightness()) << place.x() << ' ' << place.y();
    }
    EXPECT_EQ(picture.pixelColor(2, area.height() - 3), inside); // no shadow in the corner
}

TEST_F(GalleryPopoverTest, HasAShadowWhereWindowsAreBlended)
{
    {
        const Compositor compositor(desktop);
        ASSERT_TRUE(eventually([&] { return compositor.isThere(); }));
        restartPanel();
        const auto ground = showGround(desktop.x());
        openPopover();
        const auto area = popoverArea().marginsRemoved({60, 50, 60, 70});
        EXPECT_EQ(area.width(), 320);
        EXPECT_TRUE(area.contains(gallery->place("Heart rate", "slider")));
        EXPECT_GE(area.left(), 0);
        const QRect around(0, 0, 480, area.bottom() + 80);
        QImage picture;
        ASSERT_TRUE(eventually([&] { return shows(picture = screenshot(desktop.x(), around), blue); }));
        EXPECT_LT(picture.pixelColor(area.center().x(), area.bottom() + 8).lightness(),
                  picture.pixelColor(area.center().x(), area.bottom() + 76).lightness() - 10);
        EXPECT_GT(picture.pixelColor(area.center().x(), area.bottom() - 8).lightness(), 200);
        EXPECT_LT(picture.pixelColor(area.bottomRight()).lightness(), 214); // a round corner: the ground
        const QDir folder(QStringLiteral(SCREENSHOT_FOLDER));               // for whoever wants to see it
        EXPECT_TRUE(folder.mkpath(QStringLiteral(".")));
        EXPECT_TRUE(picture.save(folder.filePath(QStringLiteral("popover.png"))));

        gallery->user().click({area.right() + 30, area.center().y()}); // into the shadow
        EXPECT_TRUE(closes());
    }
    restartPanel();
    openPopover();
    EXPECT_EQ(popoverArea().width(), 320);
    EXPECT_EQ(depthOf(desktop.x(), popovers().front()), desktop.x().screen().root_depth);
}

TEST_F(GalleryPopoverTest, ClosesByItsButtonAndNotBesideIt)
{
    openPopover();
    const auto button = gallery->place("Close", "push button");
    gallery->user().click(button.center() - QPoint(40, 0));
    gallery->click("Beating", "check box");
    EXPECT_TRUE(eventually([this] { return !gallery->isChecked("Beating"); }));
    ASSERT_EQ(popovers().size(), 1U);
    gallery->user().click(button.center());
    EXPECT_TRUE(closes());
    EXPECT_TRUE(gallery->process().isRunning());
}

TEST_F(GalleryPopoverTest, ClosesByAClickAnywhereElse)
{
    const auto window = clientArea(desktop.x(), gallery->window());
    const auto &screen = desktop.x().screen();
    for (const auto &place : {QPoint(screen.width_in_pixels - 40, StatusPanel::height / 2), // the empty panel
                              QPoint(screen.width_in_pixels - 4, screen.height_in_pixels - 4), // the desktop
                              QPoint(window.right() - 20, window.bottom() - 20), heart().center()}) {
        openPopover();
        ASSERT_FALSE(popoverArea().contains(place));
        gallery->user().click(place);
        EXPECT_TRUE(closes()) << place.x() << ' ' << place.y();
        gallery->showPage("Badge"); // which takes the time that a popover would need to come back
        EXPECT_TRUE(gallery->comesToShow("StatusBadge"));
        gallery->showPage("Card");
        EXPECT_TRUE(gallery->comesToShow("ModernCardView"));
        EXPECT_TRUE(popovers().empty());
    }
}

TEST_F(GalleryPopoverTest, ClosesByEscapeThoughTheWindowManagerGivesItNoFocus)
{
    openPopover();
    EXPECT_NE(activeWindow(desktop.x()), popovers().front());
    gallery->user().press({XK_Escape});
    EXPECT_TRUE(closes());
}

TEST_F(GalleryPopoverTest, HasTheKeysThoughAnotherWindowTakesTheFocus)
{
    openPopover();
    xcb_set_input_focus(desktop.x().get(), XCB_INPUT_FOCUS_PARENT, gallery->window(), XCB_CURRENT_TIME);
    desktop.x().sync();
    gallery->user().press({XK_Escape});
    EXPECT_TRUE(closes());
}

TEST_F(GalleryPopoverTest, HasTheKeysHoweverLateAnotherProgramLetsGoOfThem)
{
    const auto &x = desktop.x();
    ASSERT_TRUE(grabKeys(x));
    openPopover();
    letPass(std::chrono::seconds(4)); // longer than anybody is asked in quick succession
    releaseKeys(x);
    EXPECT_TRUE(eventually([&x] {
        const bool isFree = grabKeys(x);
        releaseKeys(x);
        return !isFree;
    }));
    gallery->user().press({XK_Escape});
    EXPECT_TRUE(closes());
}

TEST_F(GalleryPopoverTest, ItsViewsAnswerToKeys)
{
    openPopover();
    for (const auto *view : {"Close", "Heart rate"}) {
        gallery->user().press({XK_Tab});
        ASSERT_TRUE(gallery->comesToHaveFocus(view));
    }
    gallery->user().press({XK_Home});
    EXPECT_TRUE(gallery->comesToShow("30"));
}

TEST_F(GalleryPopoverTest, TheKeyForQuittingQuits)
{
    openPopover();
    gallery->user().press({XK_Control_L, XK_q});
    EXPECT_EQ(gallery->process().waitForExit(), 0);
}

} // namespace endtoend

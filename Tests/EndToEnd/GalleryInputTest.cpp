// The gallery's pages that reach out of their window: into the session's input, and into the panel.

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/StatusPanel.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <QDir>

#include <X11/keysym.h>

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

const QString sample = QStringLiteral("Grüße, Γειά, 你好 👋🏽");

using GalleryInputTest = GalleryTest;

class GalleryPanelTest : public GalleryTest
{
protected:
    void SetUp() override
    {
        GalleryTest::SetUp();
        panel = std::make_unique<StatusPanel>(desktop.runtime());
        ASSERT_TRUE(panel->isOpen());
        gallery->showPage("Menu");
        gallery->click("Heart in the menu bar", "check box");
        ASSERT_TRUE(eventually([this] { return !heart().isEmpty(); }, std::chrono::seconds(30)));
    }

    // Where the dark pixels of the panel are, which is light and has nothing else in it.
    [[nodiscard]] QRect heart() const
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

    [[nodiscard]] std::vector<xcb_window_t> popovers() const
    {
        return windowsTitled(desktop.x(), QStringLiteral("Heart — Gallery"));
    }
    void openPopover()
    {
        gallery->user().click(heart().center());
        ASSERT_TRUE(eventually(
            [this] { return popovers().size() == 1 && activeWindow(desktop.x()) == popovers().front(); }));
    }
    void clickInPopover(const QPoint &fromTopRight)
    {
        const auto area = clientArea(desktop.x(), popovers().front());
        gallery->user().click(area.topRight() + fromTopRight);
    }
    [[nodiscard]] bool closes()
    {
        return eventually([this] { return popovers().empty(); });
    }

    std::unique_ptr<StatusPanel> panel;
};

} // namespace

TEST_F(GalleryInputTest, SeesThePointerAndTheLastKeysWhileItListensAndKeepsNone)
{
    gallery->showPage("Input");
    gallery->click("Listen", "check box");
    EXPECT_TRUE(eventually([this] { return gallery->isChecked("Listen"); }));
    gallery->user().click({3, 5});
    EXPECT_TRUE(gallery->comesToShow("3, 5"));
    gallery->user().type("ab");
    EXPECT_TRUE(gallery->comesToShow("a b"));
    gallery->showPage("Card");
    gallery->showPage("Input");
    EXPECT_TRUE(gallery->comesToShow("Last keys"));
    EXPECT_FALSE(gallery->shows(QStringLiteral("a b")));
}

TEST_F(GalleryInputTest, TypesASampleIntoWhateverHasTheFocusThreeSecondsLater)
{
    gallery->showPage("Input");
    gallery->click("Type in 3 seconds", "push button");
    gallery->click("Sample", "text");
    ASSERT_TRUE(gallery->comesToHaveFocus("Sample"));
    gallery->user().press({XK_Control_L, XK_a});
    gallery->user().press({XK_BackSpace}); // so that the text is there only if it is typed
    EXPECT_TRUE(eventually([this] { return gallery->textOf("Sample") == sample; }));
}

TEST_F(GalleryPanelTest, AClickOnTheHeartOpensThePopoverUnderIt)
{
    const auto clicked = heart();
    openPopover();
    const auto area = clientArea(desktop.x(), popovers().front());
    EXPECT_EQ(area.width(), 320);
    EXPECT_GE(area.top(), clicked.center().y());
    EXPECT_LT(area.top(), StatusPanel::height + 32);
    EXPECT_LE(area.left(), clicked.center().x());
    ASSERT_TRUE(gallery->comesToShow("Heart rate"));
    letPass(std::chrono::milliseconds(300)); // for the picture, which stays in the build tree
    const QDir folder(QStringLiteral(SCREENSHOT_FOLDER));
    EXPECT_TRUE(folder.mkpath(QStringLiteral(".")));
    EXPECT_TRUE(
        screenshot(desktop.x(), QRect(0, 0, 480, 480)).save(folder.filePath(QStringLiteral("popover.png"))));

    gallery->user().press({XK_Escape});
    EXPECT_TRUE(closes());
}

TEST_F(GalleryPanelTest, ThePopoverClosesByItsButtonAndByAClickElsewhere)
{
    openPopover();
    clickInPopover({-60, 26}); // beside the button
    EXPECT_EQ(popovers().size(), 1U);
    clickInPopover({-24, 26});
    EXPECT_TRUE(closes());
    openPopover();
    gallery->user().click(clientArea(desktop.x(), gallery->window()).center());
    EXPECT_TRUE(closes());
    EXPECT_TRUE(gallery->process().isRunning());
}

TEST_F(GalleryPanelTest, TheHeartComesBackWithThePanelAndGoesWithTheSwitch)
{
    panel.reset();
    ASSERT_TRUE(eventually([this] { return heart().isEmpty(); }));
    panel = std::make_unique<StatusPanel>(desktop.runtime());
    EXPECT_TRUE(eventually([this] { return !heart().isEmpty(); }, std::chrono::seconds(30)));
    gallery->click("Heart in the menu bar", "check box");
    EXPECT_TRUE(eventually([this] { return heart().isEmpty(); }));
}

} // namespace endtoend

// The gallery beside a panel, on a desktop of a test's own.
#pragma once

#include "Tests/EndToEnd/Gallery.h"
#include "Tests/Support/StatusPanel.h"

namespace endtoend {

// A desktop with a panel at its top. The gallery runs once it is started.
class PanelDesktopTest : public testing::Test
{
protected:
    void SetUp() override;

    // Where the dark pixels of the panel are, which is light and has nothing else in it; empty while it has
    // no heart of the right size.
    [[nodiscard]] QRect heart() const;
    [[nodiscard]] bool heartAppears() const;
    // Where a compositor comes or goes the panel makes its window anew, and takes no click for a while.
    void restartPanel();
    // Whether the heart becomes another picture within two seconds.
    [[nodiscard]] bool beats() const;

    [[nodiscard]] std::vector<xcb_window_t> popovers() const;
    [[nodiscard]] QRect popoverArea() const;
    // Clicks on the heart, and waits until the popover is there and has the pointer.
    void openPopover();
    [[nodiscard]] bool closes() const;

    Desktop desktop;
    std::unique_ptr<testsupport::StatusPanel> panel;
    std::unique_ptr<Gallery> gallery;
};

// With the gallery's window open, the heart in the panel, and a page without another popover shown.
class GalleryPanelTest : public PanelDesktopTest
{
protected:
    void SetUp() override;
};

} // namespace endtoend

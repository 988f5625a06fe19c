// The gallery on a desktop of a test's own.
#pragma once

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/XUser.h"

#include <QImage>

#include <gtest/gtest.h>

#include <memory>

namespace endtoend {

// The program under test, and the hands and eyes of its user. Controls are found by what assistive technology
// calls them, and by its role for them.
class Gallery
{
public:
    // Starts the program; it needs some time to come up.
    explicit Gallery(Desktop &desktop, const QStringList &arguments = {});

    [[nodiscard]] testsupport::ChildProcess &process() { return process_; }
    [[nodiscard]] const testsupport::XUser &user() const { return user_; }

    // Its main window, while it is open.
    [[nodiscard]] std::vector<xcb_window_t> windows() const;
    [[nodiscard]] xcb_window_t window() const;

    // Waits until the window is on the screen and in the accessible tree; says whether it is.
    [[nodiscard]] bool isUp();
    [[nodiscard]] bool shows(const QString &text) { return tree_.find(text).has_value(); }
    [[nodiscard]] bool comesToShow(const char *text);
    [[nodiscard]] bool comesToHaveFocus(const char *name);
    [[nodiscard]] bool isChecked(const char *text);
    // What the text field of that name holds.
    [[nodiscard]] QString textOf(const char *name);

    // Clicks on the control, once it stands still.
    void click(const char *name, const char *role) { user_.click(place(name, role).center()); }
    // Where the control is, once it stands still.
    [[nodiscard]] QRect place(const char *name, const char *role);
    // From another page, or from the other tab.
    void showPage(const char *page);

    // How light the window's ground is, from 0 to 255; -1 while there is none.
    [[nodiscard]] int groundLightness() const;

private:
    Desktop &desktop_;
    testsupport::ChildProcess process_;
    testsupport::AccessibleProgram tree_;
    testsupport::XUser user_;
};

class GalleryTest : public testing::Test
{
protected:
    void SetUp() override;
    void restart();

    Desktop desktop;
    std::unique_ptr<Gallery> gallery = std::make_unique<Gallery>(desktop);
};

} // namespace endtoend

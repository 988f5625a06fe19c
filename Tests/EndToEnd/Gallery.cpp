#include "Tests/EndToEnd/Gallery.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <utility>

using namespace testsupport;

namespace endtoend {

namespace {

QProcessEnvironment withAccessibility(QProcessEnvironment environment)
{
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    return environment;
}

} // namespace

Gallery::Gallery(Desktop &desktop, const QStringList &arguments)
    : desktop_(desktop)
    , process_(QStringLiteral(GALLERY_PROGRAM), arguments, withAccessibility(desktop.environment()))
    , tree_(desktop.accessibility(), process_.pid())
    , user_(desktop.x())
{}

std::vector<xcb_window_t> Gallery::windows() const
{
    return windowsTitled(desktop_.x(), QStringLiteral("Gallery"));
}

xcb_window_t Gallery::window() const
{
    const auto all = windows();
    return all.empty() ? xcb_window_t{XCB_WINDOW_NONE} : all.front();
}

bool Gallery::isUp()
{
    return eventually([this] {
        return windows().size() == 1 && isViewable(desktop_.x(), window()) &&
               shows(QStringLiteral("Control"));
    });
}

bool Gallery::comesToShow(const char *text)
{
    return eventually([&] { return shows(QString::fromUtf8(text)); });
}

bool Gallery::comesToHaveFocus(const char *name)
{
    return eventually([&] { return tree_.focused() == QString::fromUtf8(name); });
}

bool Gallery::isChecked(const char *text)
{
    const auto found = tree_.find(QString::fromUtf8(text));
    return found && found->is(AccessibleState::checked);
}

QString Gallery::textOf(const char *name)
{
    const auto found = tree_.find(QString::fromUtf8(name), QStringLiteral("text"));
    return found ? tree_.text(*found) : QString();
}

QRect Gallery::place(const char *name, const char *role)
{
    QRect last;
    EXPECT_TRUE(eventually([&] {
        const auto found = tree_.find(QString::fromUtf8(name), QString::fromUtf8(role));
        const auto place = found ? tree_.place(*found) : QRect();
        return !place.isEmpty() && std::exchange(last, place) == place;
    })) << name;
    return last;
}

void Gallery::showPage(const char *page)
{
    click("Control", "page tab");
    click(page, "page tab");
}

int Gallery::groundLightness() const
{
    const auto image = screenshot(desktop_.x(), clientArea(desktop_.x(), window()));
    return image.isNull() ? -1 : image.pixelColor(4, image.height() - 5).lightness();
}

void GalleryTest::SetUp()
{
    ASSERT_TRUE(desktop.isOpen());
    ASSERT_TRUE(gallery->isUp());
}

void GalleryTest::restart()
{
    gallery.reset();
    gallery = std::make_unique<Gallery>(desktop);
    ASSERT_TRUE(gallery->isUp());
}

} // namespace endtoend

// What the window looks like, light and dark. The pictures stay in the build tree.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/FakeSettingsPortal.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XWindows.h"

#include <QColor>
#include <QDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

using namespace testsupport;

namespace endtoend {

namespace {

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

constexpr QRgb lightGreen = 0xff34c759;
constexpr QRgb darkGreen = 0xff30d158;
constexpr QRgb lightRed = 0xffff3b30;
constexpr QRgb darkRed = 0xffff453a;

bool isNear(const QColor &color, QRgb expected)
{
    constexpr int tolerance = 3;
    const QColor other(expected);
    return std::abs(color.red() - other.red()) <= tolerance &&
           std::abs(color.green() - other.green()) <= tolerance &&
           std::abs(color.blue() - other.blue()) <= tolerance;
}

} // namespace

class AppearanceTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    [[nodiscard]] QImage picture(const Stirra &stirra) const
    {
        return screenshot(desktop.x(), clientArea(desktop.x(), stirra.window()));
    }

    // The colour of a button's ground, beside its text.
    [[nodiscard]] QColor groundOf(Stirra &stirra, const QString &button) const
    {
        const auto found = stirra.tree().find(button, QStringLiteral("push button"));
        if (!found) {
            return {};
        }
        const auto place = stirra.tree().place(*found);
        const QPoint inside(place.left() + 5, place.center().y());
        return picture(stirra).pixelColor(inside - clientArea(desktop.x(), stirra.window()).topLeft());
    }

    [[nodiscard]] int groundLightness(const Stirra &stirra) const
    {
        const auto image = picture(stirra);
        return image.isNull() ? -1 : image.pixelColor(4, image.height() - 5).lightness();
    }

    // Once two pictures in a row are alike: no animation runs any more.
    void keep(const Stirra &stirra, const QString &name) const
    {
        QImage last;
        const auto isStill = [&] {
            letPass(std::chrono::milliseconds(150));
            return picture(stirra) == std::exchange(last, picture(stirra));
        };
        EXPECT_TRUE(eventually(isStill));
        const QDir folder(QStringLiteral(SCREENSHOT_FOLDER));
        EXPECT_TRUE(folder.mkpath(QStringLiteral(".")));
        EXPECT_TRUE(last.save(folder.filePath(name + QStringLiteral(".png"))));
    }

    Desktop desktop;
};

TEST_F(AppearanceTest, WithoutAPortalTheInactiveWindowIsLightWithAGreenButton)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    EXPECT_TRUE(eventually([&] { return isNear(groundOf(stirra, QStringLiteral("Start")), lightGreen); }));
    EXPECT_TRUE(eventually([&] { return groundLightness(stirra) > 200; }));
    keep(stirra, QStringLiteral("inactive"));
}

TEST_F(AppearanceTest, TheActiveWindowHasARedButtonAndALog)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Stop")));
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    ASSERT_TRUE(stirra.comesToShow(QStringLiteral("3 events")));
    EXPECT_TRUE(eventually([&] { return isNear(groundOf(stirra, QStringLiteral("Stop")), lightRed); }));
    keep(stirra, QStringLiteral("active"));
}

TEST_F(AppearanceTest, ADarkDesktopHasADarkWindow)
{
    FakeSettingsPortal portal(desktop.bus());
    ASSERT_TRUE(portal.isOpen());
    portal.set(appearance, colorScheme, prefersDark);
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    EXPECT_TRUE(eventually([&] { return isNear(groundOf(stirra, QStringLiteral("Start")), darkGreen); }));
    EXPECT_LT(groundLightness(stirra), 80);
    EXPECT_GT(portal.readCount(), 0);
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    EXPECT_TRUE(eventually([&] { return isNear(groundOf(stirra, QStringLiteral("Stop")), darkRed); }));
    keep(stirra, QStringLiteral("dark"));
}

TEST_F(AppearanceTest, AChangeOfTheDesktopsAppearanceIsFollowedAtOnceAndBack)
{
    FakeSettingsPortal portal(desktop.bus());
    ASSERT_TRUE(portal.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(eventually([&] { return groundLightness(stirra) > 200; }));

    portal.set(appearance, colorScheme, prefersDark);
    EXPECT_TRUE(eventually([&] { return groundLightness(stirra) < 80; }));
    portal.set(appearance, colorScheme, prefersLight);
    EXPECT_TRUE(eventually([&] { return groundLightness(stirra) > 200; }));
}

TEST_F(AppearanceTest, TheAccentColourOfTheDesktopTintsTheChosenChip)
{
    FakeSettingsPortal portal(desktop.bus());
    ASSERT_TRUE(portal.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    const auto chip = [&] { return groundOf(stirra, QStringLiteral("30s")); };
    ASSERT_TRUE(eventually([&] { return chip().blue() > chip().red() + 20; }));

    portal.setAccent(1, 0, 0);
    EXPECT_TRUE(eventually([&] { return chip().red() > chip().blue() + 20; }));
}

TEST_F(AppearanceTest, APortalThatComesLaterIsHeard)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(eventually([&] { return groundLightness(stirra) > 200; }));

    FakeSettingsPortal portal(desktop.bus());
    ASSERT_TRUE(portal.isOpen());
    portal.set(appearance, colorScheme, prefersDark);

    EXPECT_TRUE(eventually([&] { return groundLightness(stirra) < 80; }));
}

} // namespace endtoend

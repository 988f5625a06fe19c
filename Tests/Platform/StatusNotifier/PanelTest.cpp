// A program's item in a real panel, as the user sees and clicks it.

#include "Platform/MenuBarServices.h"
#include "Platform/Platform.h"
#include "SharedCore/MenuBarManager/AnimatedStatusIcon.h"
#include "SharedCore/MenuBarManager/MenuBarManager.h"
#include "Tests/Platform/Portal/PortalTest.h"
#include "Tests/Platform/StatusNotifier/WatcherStandIn.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/StatusPanel.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <gtest/gtest.h>

#include <X11/keysym.h>

#include <numeric>
#include <set>

namespace platform {

namespace {

using testsupport::eventually;

class PanelTest : public testing::Test
{
protected:
    void startPanel()
    {
        panel.reset();
        panel = std::make_unique<testsupport::StatusPanel>(testsupport::sessionRuntime());
        ASSERT_TRUE(panel->isOpen());
    }

    // The dark pixels of the panel, which is light and has nothing else in it. Without it the screen is dark.
    [[nodiscard]] QRegion ink() const
    {
        const auto picture = testsupport::screenshot(x, QRect(0, 0, 400, testsupport::StatusPanel::height));
        QRegion region;
        for (int row = 0; row < picture.height(); ++row) {
            for (int column = 0; column < picture.width(); ++column) {
                if (picture.pixelColor(column, row).lightness() < 100) {
                    region += QRect(column, row, 1, 1);
                }
            }
        }
        return region;
    }

    [[nodiscard]] int darkPixels() const
    {
        const auto region = ink();
        return std::accumulate(region.begin(), region.end(), 0,
                               [](int sum, const QRect &part) { return sum + part.width() * part.height(); });
    }

    [[nodiscard]] bool isShown() const
    {
        const auto size = ink().boundingRect().size();
        return QRect(10, 10, 22, 22).contains(size.width(), size.height());
    }

    void showHeart()
    {
        item->button()->setImage(services->drawSymbol("heart.fill", 18, {0, 0, 18}));
        ASSERT_TRUE(eventually([this] { return isShown(); }, std::chrono::seconds(30)));
    }

    // Where it is.
    [[nodiscard]] QRect openMenu()
    {
        user.click(ink().boundingRect().center(), XCB_BUTTON_INDEX_3);
        EXPECT_TRUE(eventually([&] { return testsupport::mappedWindows(x).size() > 1; }));
        return testsupport::clientArea(x, testsupport::mappedWindows(x).back());
    }

    // Whether it goes, so that only the panel is left.
    [[nodiscard]] bool closeMenu()
    {
        user.press({XK_Escape});
        return eventually([&] { return testsupport::mappedWindows(x).size() == 1; });
    }

    std::unique_ptr<Platform> native = makeNativePlatform();
    PlatformInstallation installation{*native};
    std::unique_ptr<MenuBarServices> services = makeNativeMenuBar();
    testsupport::XClient x{qEnvironmentVariable("DISPLAY")};
    testsupport::XUser user{x};
    std::unique_ptr<testsupport::StatusPanel> panel;
    std::shared_ptr<StatusItem> item = services->makeStatusItem({"org.stirra.Test", "Heart"});
};

TEST_F(PanelTest, ShowsTheItemAlsoAfterItsRestart)
{
    startPanel();
    EXPECT_TRUE(eventually([this] { return ink().isEmpty(); }));
    showHeart();
    panel.reset();
    ASSERT_TRUE(eventually([this] { return !isShown(); }));
    startPanel();
    EXPECT_TRUE(eventually([this] { return isShown(); }, std::chrono::seconds(30)));
    item.reset();
    EXPECT_TRUE(eventually([this] { return ink().isEmpty(); }));
}

TEST_F(PanelTest, GivesItTheUsersClick)
{
    startPanel();
    std::vector<StatusClick> clicks;
    item->button()->setClickHandler([&clicks](const StatusClick &click) { clicks.push_back(click); });
    showHeart();
    const auto place = ink().boundingRect();
    user.click(place.center());
    ASSERT_TRUE(eventually([&] { return !clicks.empty(); }));
    EXPECT_EQ(clicks.size(), 1U);
    EXPECT_TRUE(place.adjusted(-16, -16, 16, 16).contains(clicks[0].x, clicks[0].y))
        << clicks[0].x << ", " << clicks[0].y;
}

TEST_F(PanelTest, OpensItsMenuByTheOtherButton)
{
    startPanel();
    std::vector<int> chosen;
    item->button()->setClickHandler([](const StatusClick & /*click*/) {});
    item->setMenu({{"Faster", [&chosen] { chosen.push_back(1); }},
                   {},
                   {"Slower", [&chosen] { chosen.push_back(2); }},
                   {"Quit", [&chosen] { chosen.push_back(3); }}});
    showHeart();
    const auto hasChosen = [&] { return !chosen.empty(); };
    // Until it has read the item's menu the panel opens one of its own, whose first line is its name.
    EXPECT_TRUE(eventually(
        [&] {
            const auto menu = openMenu();
            user.click(menu.topLeft() + QPoint(20, 14));
            return eventually(hasChosen, std::chrono::seconds(1)) || !closeMenu();
        },
        std::chrono::seconds(30)));
    EXPECT_EQ(chosen, std::vector{1});
}

// The times at which the panel is told of a new frame.
class Beats final : public testsupport::SeenItem
{
public:
    Beats()
        : SeenItem(testsupport::sessionBus().connect(), {})
    {}

    // The frames a second, counted over so many of them.
    double rate(int frames)
    {
        const auto first = waitFor(newIcons + 1);
        const auto last = waitFor(newIcons + frames);
        return frames / std::chrono::duration<double>(last - first).count();
    }

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point waitFor(int count)
    {
        EXPECT_TRUE(eventually([&] { return newIcons >= count; }, std::chrono::seconds(60)));
        return Clock::now();
    }
};

// How long frames are counted at a time.
int countedSeconds()
{
    const int wanted = qEnvironmentVariableIntValue("STIRRA_TEST_BEAT_SECONDS");
    return wanted > 0 ? wanted : 4;
}

// On a machine with much else to do a frame may be late, and is not made up for; a wrong rate stays wrong.
bool beatsAt(double framesPerSecond, Beats &beats)
{
    constexpr int attempts = 10;
    const int frames = static_cast<int>(framesPerSecond * countedSeconds());
    for (int i = 0; i < attempts; ++i) {
        if (std::abs(beats.rate(frames) / framesPerSecond - 1) <= 0.02) {
            return true;
        }
    }
    return false;
}

TEST_F(PanelTest, TheHeartBeatsInIt)
{
    const MenuBarInstallation menuBar(*services);
    startPanel();
    showHeart();
    Beats beats;
    sharedcore::AnimatedStatusIcon icon;
    icon.startAnimation(item, sharedcore::generateHeartFrames(), 60);
    EXPECT_TRUE(beatsAt(8, beats));
    icon.updateBPM(item, sharedcore::generateHeartFrames(), 150);
    EXPECT_TRUE(beatsAt(20, beats));
    icon.updateBPM(item, sharedcore::generateHeartFrames(), 30);
    std::set<int> looks; // by the number of dark pixels; the eight frames are of five sizes
    EXPECT_TRUE(eventually([&] {
        looks.insert(darkPixels());
        return looks.size() >= 4;
    }));
    icon.stopAnimation();
    EXPECT_TRUE(isShown());
}

} // namespace

} // namespace platform

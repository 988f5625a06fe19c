#include "Tests/App/MainWindowTest.h"

#include <QGuiApplication>
#include <QScreen>

namespace stirra {

namespace {

using DelegateTest = MainWindowTest;

TEST_F(DelegateTest, LaunchShowsOneCentredWindow)
{
    EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 1);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().title(), QStringLiteral("Stirra"));
    EXPECT_EQ(window().size(), QSize(480, 640));
    EXPECT_EQ(window().minimumSize(), QSize(400, 520));
    const auto distance = window().geometry().center() - window().screen()->availableGeometry().center();
    EXPECT_LE(distance.manhattanLength(), 2);
}

TEST_F(DelegateTest, CloseKeepsTheWindowAndAnActiveEngineAndReopenBringsThemBack)
{
    auto *const before = delegate.mainWindow();
    click("toggleButton");
    window().close();
    EXPECT_FALSE(window().isVisible());
    advanceSeconds(30);
    EXPECT_EQ(engine().totalJiggles(), 1);
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false, QStringLiteral("token")));
    EXPECT_EQ(delegate.mainWindow(), before);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(engine().isActive());
    EXPECT_EQ(platform.presentedWith, QStringList(QStringLiteral("token")));
}

TEST_F(DelegateTest, ReopenLeavesAVisibleWindowAsItIs)
{
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true, {}));
    EXPECT_TRUE(platform.presentedWith.isEmpty());
    EXPECT_TRUE(window().isVisible());
}

TEST(AppDelegate, ReopenBeforeTheLaunchShowsNothing)
{
    fakes::FakePlatform platform;
    AppDelegate delegate;
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false, {}));
    EXPECT_TRUE(platform.presentedWith.isEmpty());
}

} // namespace

} // namespace stirra

#include "SharedUI/AppLaunchContainer/LaunchWindowController.h"

#include "SharedUI/AppLaunchContainer/QmlView.h"
#include "Tests/SharedUI/LaunchWindowTest.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <thread>

namespace sharedui {

namespace {

using LaunchWindowControllerTest = LaunchWindowTest;
using LaunchWindowControllerDeathTest = LaunchWindowTest;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

QString text(const char *name)
{
    return QString::fromLatin1(name);
}

TEST_F(LaunchWindowControllerTest, PresentShowsOneCentredWindowOfTheDefaultSize)
{
    controller->present(text("Example"), builder());
    ASSERT_THAT(windows(), SizeIs(1));
    const auto &window = *windows().first();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.title(), text("Example"));
    EXPECT_EQ(window.size(), QSize(480, 680).boundedTo(window.screen()->availableSize()));
    EXPECT_EQ(window.minimumSize(), QSize(380, 520));
    EXPECT_LE((window.geometry().center() - window.screen()->availableGeometry().center()).manhattanLength(),
              2);
    EXPECT_THAT(platform.acts, ElementsAre(text("regular"), text("activate"), text("present")));
    EXPECT_EQ(rootOf(window)->size(), window.size());
}

TEST_F(LaunchWindowControllerTest, ASecondPresentKeepsTitleContentAndTheNameOfTheFrame)
{
    auto &window = present();
    const auto *root = rootOf(window);
    controller->present(text("Another"), {700, 700}, builder());
    EXPECT_THAT(windows(), ElementsAre(&window));
    EXPECT_EQ(built, 1);
    EXPECT_EQ(window.title(), text("Example"));
    EXPECT_EQ(rootOf(window), root);
    EXPECT_EQ(window.size(), QSize(480, 680).boundedTo(window.screen()->availableSize()));
    EXPECT_THAT(platform.acts, ElementsAre(text("regular"), text("activate"), text("present"),
                                           text("regular"), text("activate"), text("present")));

    window.setGeometry(30, 50, 510, 610);
    QCoreApplication::processEvents();
    window.close();
    EXPECT_NE(stored(), std::nullopt);
    EXPECT_EQ(storage.openApplicationDefaults()->value("Another.mainWindow"), std::nullopt);
}

TEST_F(LaunchWindowControllerTest, AClosedWindowComesBackWithItsContentAndState)
{
    auto &window = present({480, 560}, "TextInput { focus: true }");
    window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_A);
    for (int round = 0; round < 2; ++round) {
        window.close();
        EXPECT_FALSE(window.isVisible());
        if (round == 0) {
            controller->present(text("Example"), builder());
        } else {
            controller->bringToFront();
        }
        EXPECT_THAT(windows(), ElementsAre(&window));
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(rootOf(window)->property("text").toString(), text("a"));
    }
    EXPECT_EQ(built, 1);
}

TEST_F(LaunchWindowControllerTest, BringToFrontBeforeAnyPresentOnlyActivates)
{
    controller->bringToFront();
    EXPECT_THAT(platform.acts, ElementsAre(text("activate")));
    EXPECT_THAT(windows(), IsEmpty());
}

TEST_F(LaunchWindowControllerTest, BringToFrontLeavesTheActivationPolicyAndPassesTheTokenOn)
{
    present();
    platform.acts.clear();
    controller->bringToFront(text("token"));
    EXPECT_THAT(platform.acts, ElementsAre(text("activate"), text("present")));
    EXPECT_EQ(platform.presentedWith.last(), text("token"));
}

TEST_F(LaunchWindowControllerTest, TheDeferredFormReturnsAtOnceAndShowsTheWindowLater)
{
    controller->presentDeferred(text("Example"), builder());
    EXPECT_EQ(built, 0);
    EXPECT_THAT(windows(), IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_EQ(built, 1);
    ASSERT_THAT(windows(), SizeIs(1));
    EXPECT_EQ(windows().first()->title(), text("Example"));
}

TEST_F(LaunchWindowControllerTest, TheDeferredFormHoldsTheControllerWeakly)
{
    controller->presentDeferred(text("Example"), {500, 600}, builder());
    controller.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(built, 0);
    EXPECT_THAT(platform.acts, IsEmpty());
}

TEST_F(LaunchWindowControllerTest, TheRootFillsTheWindow)
{
    auto &window = present({500, 600});
    window.resize(550, 570);
    QCoreApplication::processEvents();
    EXPECT_EQ(rootOf(window)->size(), QSizeF(550, 570));
}

TEST_F(LaunchWindowControllerTest, TheRootCanRaiseTheMinimumAndDoesNotLowerIt)
{
    auto &window =
        present({100, 100}, "Item { property real minimumWidth: 420.5; property real minimumHeight: 100 }");
    EXPECT_EQ(window.minimumSize(), QSize(421, 520));
    EXPECT_EQ(window.size(), QSize(421, 520));
    rootOf(window)->setProperty("minimumHeight", 560);
    EXPECT_EQ(window.minimumSize(), QSize(421, 560));
    EXPECT_EQ(window.size(), QSize(421, 560));
    rootOf(window)->setProperty("minimumWidth", qQNaN());
    EXPECT_EQ(window.minimumSize(), QSize(380, 560));
}

TEST_F(LaunchWindowControllerTest, TheWindowIsNoSmallerThanALaunchContainer)
{
    const auto &window =
        present({100, 100}, "import SharedUI\nAppLaunchContainer { appTitle: \"Example\"; Item {} }");
    EXPECT_EQ(window.minimumSize(), QSize(420, 560));
    EXPECT_EQ(window.size(), QSize(420, 560));
}

TEST_F(LaunchWindowControllerTest, TheWindowHasTheDesktopsBackgroundInLightAndDark)
{
    auto &window = present();
    const auto light = window.color();
    platform.appearance().set({true, {}, {}, {}});
    EXPECT_GT(light.lightness(), 200);
    EXPECT_LT(window.color().lightness(), 80);
}

TEST_F(LaunchWindowControllerTest, TheDesktopsKeyForClosingWorksWhereNoViewTakesIt)
{
    auto &window = present();
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_TRUE(window.isVisible());
    QTest::keySequence(&window, QKeySequence::Close);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(LaunchWindowControllerTest, TheQmlsOwnQuitEndsTheProgram)
{
    present({480, 560}, "Item { Timer { running: true; interval: 1; onTriggered: Qt.quit() } }");
    QTimer::singleShot(std::chrono::seconds(20), qApp, [] { QGuiApplication::exit(1); });
    EXPECT_EQ(QGuiApplication::exec(), 0);
}

TEST_F(LaunchWindowControllerTest, ARootIsMadeFromAQmlModule)
{
    controller->present(text("Example"), qmlView("SharedUI", "ModernCardView"));
    ASSERT_THAT(windows(), SizeIs(1));
    ASSERT_TRUE(rootOf(*windows().first()));
    EXPECT_TRUE(rootOf(*windows().first())->inherits("QQuickItem"));
}

TEST_F(LaunchWindowControllerTest, AViewThatCannotBeMadeIsReportedAndTheWindowStaysEmpty)
{
    testing::internal::CaptureStderr();
    controller->present(text("Example"), qmlView("SharedUI", "NoSuchView"));
    EXPECT_THAT(
        testing::internal::GetCapturedStderr(),
        testing::AllOf(testing::HasSubstr("SharedUI.NoSuchView: "), testing::HasSubstr("not a type")));
    ASSERT_THAT(windows(), SizeIs(1));
    EXPECT_TRUE(windows().first()->isVisible());
    EXPECT_FALSE(rootOf(*windows().first()));

    testing::internal::CaptureStderr();
    QQmlEngine engine;
    EXPECT_FALSE(qmlView("QtQml", "QtObject")(engine));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "QtQml.QtObject: is no view\n");
}

TEST_F(LaunchWindowControllerTest, ThereIsOneSharedController)
{
    const QPointer<LaunchWindowController> first(&LaunchWindowController::shared());
    EXPECT_EQ(first, &LaunchWindowController::shared());
    LaunchWindowController::endShared();
    EXPECT_FALSE(first);
}

TEST_F(LaunchWindowControllerDeathTest, OnlyTheMainThreadMayCallIt)
{
    const auto elsewhere = [](const std::function<void()> &call) { std::thread(call).join(); };
    EXPECT_DEATH(elsewhere([this] { controller->present(text("Example"), builder()); }),
                 "SharedUI/AppLaunchContainer:125: Assertion failed");
    EXPECT_DEATH(elsewhere([this] { controller->presentDeferred(text("Example"), builder()); }),
                 "SharedUI/AppLaunchContainer:158: Assertion failed");
    EXPECT_DEATH(elsewhere([this] { controller->bringToFront(); }),
                 "SharedUI/AppLaunchContainer:166: Assertion failed");
}

} // namespace

} // namespace sharedui

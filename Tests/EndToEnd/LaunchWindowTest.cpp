// The one window of a program of the family, as the window manager and the user have it.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/QtPrinting.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>

using namespace testsupport;
using testing::Contains;
using testing::Not;
using testing::SizeIs;

namespace endtoend {

namespace {

const QString program = QStringLiteral(LAUNCH_WINDOW_PROGRAM);
const QRect screen(0, 0, 1280, 800);

class LaunchWindowTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    [[nodiscard]] std::vector<xcb_window_t> windows() const
    {
        return windowsTitled(desktop.x(), QStringLiteral("Launch window"));
    }
    // REQUIRES: isUp().
    [[nodiscard]] xcb_window_t window() const { return windows().front(); }
    [[nodiscard]] QRect area() const
    {
        return windows().empty() ? QRect() : clientArea(desktop.x(), window());
    }
    [[nodiscard]] bool isUp() const
    {
        return eventually([this] {
            return windows().size() == 1 && isViewable(desktop.x(), window()) &&
                   activeWindow(desktop.x()) == window();
        });
    }
    [[nodiscard]] bool comesTo(const QRect &wanted) const
    {
        return eventually([&] { return area() == wanted; });
    }

    // Presses the key until the window shows that it has come: a window is active some time before its
    // program knows.
    [[nodiscard]] bool pressUntil(xcb_keysym_t key, const std::function<bool()> &hasCome) const
    {
        return eventually([&] {
            if (!hasCome()) {
                XUser(desktop.x()).press({key});
                letPass(std::chrono::milliseconds(50));
            }
            return hasCome();
        });
    }

    // Has a second launch bring the window of the first one to the front.
    void launchAgain()
    {
        ChildProcess second(program, {}, desktop.environment());
        EXPECT_EQ(second.waitForExit(), 0) << second.standardError().constData();
    }

    void endInOrder(ChildProcess &process) const
    {
        process.sendSignal(SIGTERM);
        EXPECT_EQ(process.waitForExit(), 0);
        EXPECT_EQ(process.standardError(), "");
    }

    Desktop desktop;
};

} // namespace

TEST_F(LaunchWindowTest, ItsFrameOutlivesTheProgram)
{
    const QRect chosen(220, 90, 450, 570);
    {
        ChildProcess process(program, {}, desktop.environment());
        ASSERT_TRUE(isUp());
        EXPECT_EQ(area().size(), QSize(500, 600));
        const auto offCentre = area().center() - screen.center();
        const auto frame = frameOf(desktop.x(), window());
        EXPECT_LE(std::abs(offCentre.x()), frame.left() + frame.right() + 1);
        EXPECT_LE(std::abs(offCentre.y()), frame.top() + frame.bottom() + 1);

        EXPECT_EQ(smallestSize(desktop.x(), window()), QSize(380, 520));
        resize(desktop.x(), window(), {100, 100});
        EXPECT_TRUE(eventually([this] { return area().size() == QSize(380, 520); }));
        move(desktop.x(), window(), chosen.topLeft()); // first: who has the new size knows the place
        resize(desktop.x(), window(), chosen.size());
        ASSERT_TRUE(eventually([&] { return area().size() == chosen.size(); }));
        ASSERT_TRUE(eventually([&] { return process.standardOutput().contains("size 450 x 570\n"); }));
        endInOrder(process);
    }
    ChildProcess process(program, {}, desktop.environment());
    ASSERT_TRUE(isUp());
    const auto restored = area();
    EXPECT_EQ(restored.size(), chosen.size());
    const auto frame = frameOf(desktop.x(), window());
    EXPECT_LE(std::abs(restored.x() - chosen.x()), frame.left()); // which the window manager may count or not
    EXPECT_LE(std::abs(restored.y() - chosen.y()), frame.top());

    constexpr std::uint32_t add = 1;
    desktop.x().tellWindowManager(window(), "_NET_WM_STATE",
                                  {add, desktop.x().atom("_NET_WM_STATE_MAXIMIZED_HORZ"),
                                   desktop.x().atom("_NET_WM_STATE_MAXIMIZED_VERT"), 0, 0});
    ASSERT_TRUE(eventually([&] { return area().width() == screen.width(); }));
    ASSERT_TRUE(eventually([&] { return process.standardOutput().contains("size 1280 x"); }));
    endInOrder(process);

    ChildProcess third(program, {}, desktop.environment());
    ASSERT_TRUE(isUp());
    EXPECT_TRUE(comesTo(restored));
}

TEST_F(LaunchWindowTest, ClosedItComesBackAsItWas)
{
    ChildProcess process(program, {}, desktop.environment());
    ASSERT_TRUE(isUp());
    const auto line = [&](int spaces) {
        for (const auto &text : process.standardOutput().split('\n')) {
            if (text.startsWith("space " + QByteArray::number(spaces) + " in ")) {
                return text;
            }
        }
        return QByteArray();
    };
    ASSERT_TRUE(pressUntil(XK_space, [&] { return !line(1).isEmpty(); }));
    move(desktop.x(), window(), {220, 90});
    resize(desktop.x(), window(), {450, 570});
    ASSERT_TRUE(eventually([this] { return area().size() == QSize(450, 570); }));
    const auto before = area();

    close(desktop.x(), window());
    ASSERT_TRUE(eventually([this] { return windows().empty(); }));
    EXPECT_TRUE(process.isRunning());
    launchAgain();

    ASSERT_TRUE(isUp());
    EXPECT_TRUE(comesTo(before));
    EXPECT_THAT(windows(), SizeIs(1));
    ASSERT_TRUE(pressUntil(XK_space, [&] { return !line(2).isEmpty(); }));
    EXPECT_EQ(line(2).mid(8), line(1).mid(8)); // in the same window

    EXPECT_TRUE(eventually([&] {
        XUser(desktop.x()).press({XK_Control_L, XK_q});
        return process.waitForExit(std::chrono::milliseconds(100)).has_value();
    }));
    EXPECT_EQ(process.exitStatus(), 0);
}

TEST_F(LaunchWindowTest, AnAccessoryIsNotListedUntilItPresentsItsWindow)
{
    ChildProcess process(program, {}, desktop.environment());
    ASSERT_TRUE(isUp());
    const auto unlisted = desktop.x().atom("_NET_WM_STATE_SKIP_TASKBAR");
    const auto states = [&] { return desktop.x().cardinals(window(), "_NET_WM_STATE"); };
    EXPECT_THAT(states(), Not(Contains(unlisted)));
    EXPECT_TRUE(pressUntil(XK_a, [&] { return testing::Value(states(), Contains(unlisted)); }));

    close(desktop.x(), window());
    ASSERT_TRUE(eventually([this] { return windows().empty(); }));
    launchAgain();
    ASSERT_TRUE(isUp());
    EXPECT_TRUE(eventually([&] { return testing::Value(states(), Contains(unlisted)); }));

    EXPECT_TRUE(pressUntil(XK_p, [&] { return testing::Value(states(), Not(Contains(unlisted))); }));
}

} // namespace endtoend

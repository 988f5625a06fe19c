// The one window, as the window manager and the user have it.

#include "Tests/EndToEnd/SeenAction.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

#include <cstdlib>

using namespace testsupport;
using testing::IsEmpty;
using testing::SizeIs;

namespace endtoend {

class WindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(desktop.isOpen());
        ASSERT_TRUE(stirra.isUp());
    }

    [[nodiscard]] QRect area() const { return clientArea(desktop.x(), stirra.window()); }

    Desktop desktop;
    Stirra stirra{desktop};
};

TEST_F(WindowTest, ALaunchShowsExactlyOneWindowCentredWithRoomFor480By640)
{
    EXPECT_THAT(managedWindows(desktop.x()), SizeIs(1));
    EXPECT_THAT(desktop.stirraWindows(), SizeIs(1));
    EXPECT_EQ(processOf(desktop.x(), stirra.window()), stirra.process().pid());
    EXPECT_EQ(area().size(), QSize(480, 640));

    const auto frame = frameOf(desktop.x(), stirra.window());
    const auto offCentre = area().center() - QRect(0, 0, 1280, 800).center();
    EXPECT_LE(std::abs(offCentre.x()), frame.left() + frame.right() + 1);
    EXPECT_LE(std::abs(offCentre.y()), frame.top() + frame.bottom() + 1);
}

TEST_F(WindowTest, ItCanBeMade400By520AndNoSmaller)
{
    EXPECT_EQ(smallestSize(desktop.x(), stirra.window()), QSize(400, 520));

    resize(desktop.x(), stirra.window(), {400, 520});
    EXPECT_TRUE(eventually([this] { return area().size() == QSize(400, 520); }));
    resize(desktop.x(), stirra.window(), {600, 700});
    EXPECT_TRUE(eventually([this] { return area().size() == QSize(600, 700); }));
    resize(desktop.x(), stirra.window(), {100, 100});
    EXPECT_TRUE(eventually([this] { return area().size() == QSize(400, 520); }));
}

TEST_F(WindowTest, ClosedItLeavesTheActiveEngineRunningAndComesBackWithItsState)
{
    ASSERT_TRUE(stirra.startIn(QStringLiteral("Mouse Jiggle")));

    close(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([this] { return desktop.stirraWindows().empty(); }));

    EXPECT_TRUE(awaitAction(desktop));
    EXPECT_TRUE(stirra.process().isRunning());
    EXPECT_THAT(desktop.stirraWindows(), IsEmpty());

    ChildProcess second(stirraPath(), {}, desktop.environment());
    EXPECT_EQ(second.waitForExit(), 0);
    ASSERT_TRUE(stirra.isUp());
    for (const char *text : {"Stop", "Mouse jiggle (+1,+1)", "Mouse jiggle", "1", "2 events"}) {
        EXPECT_TRUE(stirra.comesToShow(QString::fromLatin1(text))) << text;
    }
}

TEST_F(WindowTest, CtrlWClosesItAndEndsNothing)
{
    activate(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([this] { return activeWindow(desktop.x()) == stirra.window(); }));
    EXPECT_TRUE(eventually([this] {
        if (!desktop.stirraWindows().empty()) {
            XUser(desktop.x()).press({XK_Control_L, XK_w});
            letPass(std::chrono::milliseconds(50));
        }
        return desktop.stirraWindows().empty();
    }));
    EXPECT_TRUE(stirra.process().isRunning());
}

} // namespace endtoend

// The one window of a program of the family on a compositor that tells nobody where windows are.

#include "Tests/EndToEnd/WaylandDesktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/Wayland/PrivateSway.h"

#include <gmock/gmock.h>

#include <csignal>

using namespace testsupport;
using testing::EndsWith;

namespace endtoend {

TEST(WaylandLaunchWindowTest, ItsSizeOutlivesTheProgram)
{
    const auto program = QStringLiteral(LAUNCH_WINDOW_PROGRAM);
    WaylandDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    const PrivateSway sway(desktop.runtime(), "for_window [title=\"^Launch window$\"] floating enable\n");
    ASSERT_TRUE(sway.isOpen());
    {
        ChildProcess process(program, {}, desktop.environment());
        ASSERT_TRUE(eventually([&] { return process.standardOutput().contains("size 500 x 600\n"); }));
        ASSERT_TRUE(eventually([&] {
            return sway.command(QStringLiteral("[title=\"^Launch window$\"] resize set 450 px 570 px"));
        }));
        ASSERT_TRUE(eventually([&] { return process.standardOutput().contains("size 450 x 570\n"); }))
            << process.standardOutput().constData();
        process.sendSignal(SIGTERM);
        ASSERT_EQ(process.waitForExit(), 0) << process.standardError().constData();
    }
    ChildProcess process(program, {}, desktop.environment());
    ASSERT_TRUE(eventually(
        [&] { return sway.command(QStringLiteral("[title=\"^Launch window$\" floating] focus")); }));
    EXPECT_THAT(process.standardOutput().toStdString(), EndsWith("\nsize 450 x 570\n"));
    EXPECT_FALSE(process.standardOutput().contains("size 500 x 600"));
}

} // namespace endtoend

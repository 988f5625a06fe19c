// Starting the program while it runs: the running one shows its window again. With a session bus and without.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XScreenshot.h"
#include "Tests/Support/XUser.h"
#include "Tests/Support/XWindows.h"

#include <X11/keysym.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <iostream>

using namespace testsupport;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::SizeIs;

namespace endtoend {

class SecondLaunchTest : public testing::TestWithParam<Desktop::Bus>
{
protected:
    void SetUp() override { ASSERT_TRUE(desktop.isOpen()); }

    // Starts the program again and waits for its end; its exit code and how long it took.
    struct Launch
    {
        std::optional<int> exitStatus;
        std::chrono::milliseconds duration{};
    };
    Launch launchAgain()
    {
        const auto start = std::chrono::steady_clock::now();
        ChildProcess process(stirraPath(), {}, desktop.environment());
        const auto status = process.waitForExit();
        const auto end = std::chrono::steady_clock::now();
        return {status, std::chrono::duration_cast<std::chrono::milliseconds>(end - start)};
    }

    [[nodiscard]] bool comesToHaveOneWindow()
    {
        return eventually([this] {
            const auto windows = desktop.stirraWindows();
            return windows.size() == 1 && isViewable(desktop.x(), windows.front());
        });
    }

    Desktop desktop{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Bus, SecondLaunchTest, testing::Values(Desktop::Bus::session, Desktop::Bus::none),
                         testing::PrintToStringParamName());

TEST_P(SecondLaunchTest, BringsTheClosedWindowBackAndEndsAtOnce)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    const auto area = clientArea(desktop.x(), stirra.window());
    std::vector<std::chrono::milliseconds> durations;
    for (int i = 0; i < 5; ++i) {
        close(desktop.x(), stirra.window());
        ASSERT_TRUE(eventually([this] { return desktop.stirraWindows().empty(); }));

        const auto launch = launchAgain();
        EXPECT_EQ(launch.exitStatus, 0);
        EXPECT_LT(launch.duration, 2s);
        durations.push_back(launch.duration);
        ASSERT_TRUE(comesToHaveOneWindow());
        EXPECT_EQ(processOf(desktop.x(), stirra.window()), stirra.process().pid());
        EXPECT_TRUE(eventually([&] { return clientArea(desktop.x(), stirra.window()) == area; }));
        EXPECT_TRUE(eventually([&] { return activeWindow(desktop.x()) == stirra.window(); }));
    }
    EXPECT_TRUE(stirra.process().isRunning());
    std::ranges::sort(durations);
    std::cout << "A second launch takes " << durations[2].count() << " ms (median of 5)\n";
}

TEST_P(SecondLaunchTest, FindsTheStateAsItWas)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    activate(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([&] { return activeWindow(desktop.x()) == stirra.window(); }));
    const auto picture = [&] { return screenshot(desktop.x(), clientArea(desktop.x(), stirra.window())); };
    const auto before = picture();
    const XUser user(desktop.x());
    for (int i = 0; i < 3; ++i) {
        user.press({XK_Tab});
    }
    user.press({XK_space}); // the mode Key Press
    QImage changed;
    ASSERT_TRUE(eventually([&] {
        letPass(200ms);
        return picture() == std::exchange(changed, picture()) && changed != before;
    }));

    close(desktop.x(), stirra.window());
    ASSERT_TRUE(eventually([this] { return desktop.stirraWindows().empty(); }));
    EXPECT_EQ(launchAgain().exitStatus, 0);

    ASSERT_TRUE(comesToHaveOneWindow());
    EXPECT_TRUE(eventually([&] { return picture() == changed; }));
}

TEST_P(SecondLaunchTest, BringsTheMinimisedWindowBack)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    const auto window = stirra.window();
    minimise(desktop.x(), window);
    ASSERT_TRUE(eventually([&] { return !isViewable(desktop.x(), window); }));

    EXPECT_EQ(launchAgain().exitStatus, 0);

    EXPECT_TRUE(eventually([&] { return isViewable(desktop.x(), window); }));
    EXPECT_THAT(desktop.stirraWindows(), ElementsAre(window));
}

TEST_P(SecondLaunchTest, LeavesTheVisibleWindowAsItIs)
{
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    const auto window = stirra.window();
    resize(desktop.x(), window, {500, 600});
    move(desktop.x(), window, {40, 60});
    ASSERT_TRUE(eventually([&] { return clientArea(desktop.x(), window).size() == QSize(500, 600); }));
    letPass(200ms);
    const auto area = clientArea(desktop.x(), window);

    EXPECT_EQ(launchAgain().exitStatus, 0);
    letPass(300ms);

    EXPECT_THAT(desktop.stirraWindows(), ElementsAre(window));
    EXPECT_TRUE(isViewable(desktop.x(), window));
    EXPECT_EQ(clientArea(desktop.x(), window), area);
}

TEST_P(SecondLaunchTest, OfThreeStartedInTheSameInstantOneStays)
{
    for (int round = 0; round < 3; ++round) {
        std::vector<std::unique_ptr<ChildProcess>> programs;
        for (int i = 0; i < 3; ++i) {
            programs.push_back(
                std::make_unique<ChildProcess>(stirraPath(), QStringList(), desktop.environment()));
        }
        const auto runningCount = [&] {
            return std::ranges::count_if(programs, [](const auto &program) { return program->isRunning(); });
        };
        EXPECT_TRUE(eventually([&] { return runningCount() == 1; }));
        EXPECT_TRUE(comesToHaveOneWindow());
        letPass(500ms);
        EXPECT_EQ(runningCount(), 1);
        EXPECT_THAT(desktop.stirraWindows(), SizeIs(1));
        for (const auto &program : programs) {
            EXPECT_EQ(program->exitStatus().value_or(0), 0) << program->standardError().toStdString();
        }
    }
}

TEST_P(SecondLaunchTest, StartsAnewAfterTheFirstWasKilled)
{
    {
        Stirra killed(desktop);
        ASSERT_TRUE(killed.isUp());
        killed.process().sendSignal(SIGKILL);
        ASSERT_EQ(killed.process().waitForExit(), -SIGKILL);
    }
    ASSERT_TRUE(eventually([this] { return desktop.stirraWindows().empty(); }));

    Stirra stirra(desktop);
    EXPECT_TRUE(stirra.isUp());
}

} // namespace endtoend

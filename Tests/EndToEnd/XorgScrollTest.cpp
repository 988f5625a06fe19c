// The program's scroll on a real X server, above another program's text.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XWindows.h"
#include "Tests/Support/Xorg/PrivateXorg.h"
#include "Tests/Support/Xorg/TextViewProgram.h"

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

constexpr int verticalAxis = 3;
constexpr double unitsOfANotch = 120;

struct AxisStep
{
    double units;
    std::uint32_t time; // milliseconds of the server's clock
};

// What the vertical axis was moved by, and when.
std::vector<AxisStep> steps(XObserver &observer)
{
    std::vector<AxisStep> steps;
    for (const auto &event : observer.events(XRawEvent::Kind::motion)) {
        if (event.valuator(verticalAxis) != 0) {
            steps.push_back({event.valuator(verticalAxis), event.serverTime});
        }
    }
    return steps;
}

// Without a window manager windows keep the places that they ask for: the text is at the upper left corner of
// the screen, and Stirra in its middle.
class XorgDesktop
{
public:
    [[nodiscard]] bool isOpen() const { return server.isOpen() && bus.isOpen() && accessibilityBus.isOpen(); }

    PrivateRuntime runtime;
    PrivateXorg server{runtime};
    PrivateBus bus{runtime};
    AccessibilityBus accessibilityBus{runtime, bus};
};

bool startScrolling(AccessibleProgram &tree)
{
    const auto press = [&tree](const char *button) {
        return eventually([&] { return tree.press(QString::fromLatin1(button)); });
    };
    return press("Scroll Pulse") && press("15s") && press("Start") &&
           eventually([&] { return tree.find(QStringLiteral("Starting...")).has_value(); });
}

} // namespace

TEST(XorgScrollTest, IsAFractionOfANotchThatComesBackAndLeavesTheTextWhereItWas)
{
    XorgDesktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    TextViewProgram text(desktop.runtime, TextViewProgram::Toolkit::gtk, 0.5);
    ASSERT_TRUE(text.isReady());
    desktop.runtime.environment().insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"),
                                         QStringLiteral("1"));
    const ChildProcess stirra(stirraPath(), {}, desktop.runtime.environment());
    AccessibleProgram tree(desktop.accessibilityBus.connect(), stirra.pid());
    XObserver observer(desktop.server.display());
    ASSERT_TRUE(startScrolling(tree));
    xcb_warp_pointer(observer.client().get(), XCB_WINDOW_NONE, observer.client().root(), 0, 0, 0, 0, 100,
                     200);
    observer.client().sync();
    desktop.server.mouse().moveBy(20, 10);
    const auto start = text.position();

    ASSERT_TRUE(eventually([&] { return steps(observer).size() == 2; }, moreThanOneInterval));

    const auto seen = steps(observer);
    EXPECT_GT(seen[0].units, 0);
    EXPECT_LT(seen[0].units, unitsOfANotch);
    EXPECT_EQ(seen[1].units, -seen[0].units);
    EXPECT_GE(seen[1].time - seen[0].time, 75U); // the way out may have waited for a change of device
    EXPECT_LE(seen[1].time - seen[0].time, 300U);
    EXPECT_TRUE(observer.events(XRawEvent::Kind::buttonPress).empty());
    EXPECT_TRUE(eventually([&] { return std::abs(text.position() - start) < 0.5; }));
}

} // namespace endtoend

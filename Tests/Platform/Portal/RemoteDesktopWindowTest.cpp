// What a window of the desktop sees of posting through the portal.

#include "Tests/Platform/Portal/RemoteDesktopTest.h"
#include "Tests/Support/HeadlessMutter.h"
#include "Tests/Support/Wayland/WaylandWindow.h"

#include <algorithm>
#include <utility>

namespace platform {

using testing::SizeIs;
using testsupport::eventually;
using testsupport::HeadlessMutter;
using testsupport::RemoteDesktopInput;
using testsupport::sessionBus;
using testsupport::sessionRuntime;
using testsupport::WaylandWindow;
using Kind = testsupport::WaylandEvent::Kind;

namespace {

constexpr double none = 0;
constexpr double longestWay = 700; // the screen is 800 high
constexpr int enoughSteps = 6;     // no growing window is still for so many frames
constexpr unsigned keyF24 = 194;
constexpr unsigned keyF19 = 189;

} // namespace

// A window with the focus and the pointer, and a session that runs.
class RemoteDesktopWindowTest : public RemoteDesktopTest
{
protected:
    void SetUp() override
    {
        RemoteDesktopTest::SetUp();
        mutter.emplace(sessionRuntime(), sessionBus());
        ASSERT_TRUE(mutter->isOpen());
        runSession();
        portal->onInput([this](const RemoteDesktopInput &input) { mutter->take(input); });
        window.emplace(mutter->display());
        ASSERT_TRUE(window->isOpen());
        ASSERT_TRUE(hasFocus());
        ASSERT_TRUE(putPointerIntoIt());
    }

    void typeKey(unsigned code) const
    {
        for (const unsigned state : {1U, 0U}) {
            mutter->take({QStringLiteral("NotifyKeyboardKeycode"), {code, state}, {}, false});
        }
    }

    // The desktop has a keyboard from the first key on.
    [[nodiscard]] bool hasFocus()
    {
        return eventually([&] {
            typeKey(keyF24);
            return !window->input().events(Kind::key).empty();
        });
    }

    [[nodiscard]] std::size_t inputCount()
    {
        auto &input = window->input();
        return input.events(Kind::motion).size() + input.events(Kind::key).size() +
               input.events(Kind::axis).size();
    }

    // A step of the pointer, and a key after it that the window sees when the step is over.
    [[nodiscard]] bool steps(double dx, double dy)
    {
        window->input().clear();
        mutter->take({QStringLiteral("NotifyPointerMotion"), {dx, dy}, {}, false});
        typeKey(keyF19);
        return eventually([&] {
            const auto keys = window->input().events(Kind::key);
            return !keys.empty() && keys.back().code == keyF19 && !keys.back().isDown;
        });
    }

    // The window comes up growing, mutter knows where: the pointer goes down the diagonal again and again
    // until it is in the window, and then aside until a step is as long as it should be.
    [[nodiscard]] bool putPointerIntoIt()
    {
        double place = longestWay;
        const bool isIn = eventually([&] {
            const double way = place >= longestWay ? -longestWay : 10;
            place = std::max(place + way, none);
            return steps(way, way) && !window->input().events(Kind::pointerEnter).empty();
        });
        return isIn && eventually([this] { return stepsAreExact(enoughSteps); });
    }

    // Goes to and fro; says whether the window saw each step as long as it was.
    [[nodiscard]] bool stepsAreExact(int count)
    {
        double offset = 10;
        double x = stepsTo(offset);
        bool isExact = true;
        for (int i = 0; i < count; ++i) {
            offset = -offset;
            const double last = std::exchange(x, stepsTo(offset));
            isExact = isExact && x - last == offset;
        }
        window->input().clear();
        return isExact;
    }

    // Where in the window a step aside leads.
    [[nodiscard]] double stepsTo(double dx)
    {
        const bool isOver = steps(dx, 0);
        const auto motions = window->input().events(Kind::motion);
        return isOver && !motions.empty() ? motions.back().x : 0;
    }

    std::optional<HeadlessMutter> mutter;
    std::optional<WaylandWindow> window;
};

TEST_F(RemoteDesktopWindowTest, AWindowSeesAStepAndAPixelThatComeBackAndKeysThatTypeNothing)
{
    std::size_t count = 0;
    for (const auto &action : everyAction()) {
        for (const auto &event : action) {
            EXPECT_TRUE(poster->post(event));
            ++count;
        }
        // Steps within one frame would be one for the window.
        ASSERT_TRUE(eventually([&] { return inputCount() == count; }));
    }
    const auto steps = window->input().events(Kind::motion);
    ASSERT_THAT(steps, SizeIs(2));
    EXPECT_EQ(steps[1].x - steps[0].x, -1);
    EXPECT_EQ(steps[1].y - steps[0].y, -1);
    const auto scrolls = window->input().events(Kind::axis);
    EXPECT_NEAR(scrolls[0].y, 1, 0.1); // which mutter turns into parts of a notch and back
    EXPECT_EQ(scrolls[0].y + scrolls[1].y, 0);
    const auto keys = window->input().events(Kind::key);
    ASSERT_THAT(keys, SizeIs(4));
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i].code, i < 2 ? keyF24 : keyF19);
        EXPECT_EQ(keys[i].isDown, i % 2 == 0);
        EXPECT_EQ(keys[i].symbol, xkb_keysym_t{XKB_KEY_NoSymbol});
        EXPECT_EQ(keys[i].text, QString());
    }
}

} // namespace platform

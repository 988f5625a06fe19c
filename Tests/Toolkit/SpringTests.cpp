#include "Toolkit/Spring.h"

#include "Tests/Support/Eventually.h"
#include "Tests/Toolkit/ToolkitTest.h"

#include <cmath>
#include <numbers>

namespace toolkit {

namespace {

using testsupport::eventually;

constexpr double response = 0.3;
constexpr double omega = 2 * std::numbers::pi / response;

// The same equation, solved in steps of a microsecond.
double stepped(double damping, double offset, double velocity, double seconds)
{
    constexpr double step = 1e-6;
    for (double time = 0; time < seconds; time += step) {
        velocity -= (2 * damping * omega * velocity + omega * omega * offset) * step;
        offset += velocity * step;
    }
    return offset;
}

TEST(SpringMotion, SolvesTheEquationOfADampedSpring)
{
    for (const double damping : {0.2, 0.6, 1.0, 1.5}) {
        const SpringMotion motion(response, damping, 0.05, -0.4);
        for (const double seconds : {0.0, 0.02, 0.1, 0.25}) {
            EXPECT_NEAR(motion.offset(seconds), stepped(damping, 0.05, -0.4, seconds), 1e-4)
                << damping << ' ' << seconds;
        }
    }
}

TEST(SpringMotion, ItsVelocityIsThatOfItsOffset)
{
    for (const double damping : {0.6, 1.0, 1.5}) {
        const SpringMotion motion(response, damping, 1, 3);
        EXPECT_NEAR(motion.velocity(0), 3, 1e-9);
        for (const double seconds : {0.05, 0.2}) {
            const double slope = (motion.offset(seconds + 1e-6) - motion.offset(seconds - 1e-6)) / 2e-6;
            EXPECT_NEAR(motion.velocity(seconds), slope, 1e-4) << damping << ' ' << seconds;
        }
    }
}

TEST(SpringMotion, SwingsBeyondItsRestByWhatItsDampingLeaves)
{
    // exp(-pi * 0.6 / sqrt(1 - 0.36)) of the way, after half a swing.
    const SpringMotion motion(response, 0.6, 1, 0);
    const double halfSwing = std::numbers::pi / (omega * 0.8);
    EXPECT_NEAR(motion.offset(halfSwing), -std::exp(-std::numbers::pi * 0.75), 1e-6);
    EXPECT_NEAR(motion.velocity(halfSwing), 0, 1e-6);
}

class SpringTest : public ToolkitTest
{
protected:
    QQuickItem &showSpring()
    {
        return show("Item { id: root; property real goal: 1; property alias value: spring.value;"
                    "Spring { id: spring; target: root.goal; response: 0.3; dampingFraction: 0.6 } }");
    }

    static double value(const QQuickItem &item) { return item.property("value").toDouble(); }
};

TEST_F(SpringTest, IsAtItsFirstTargetAtOnce)
{
    EXPECT_EQ(value(showSpring()), 1);
}

TEST_F(SpringTest, SpringsToEachNewTargetAndRestsExactlyThere)
{
    auto &item = showSpring();
    for (const double goal : {0.95, 1.0}) {
        item.setProperty("goal", goal);
        EXPECT_NE(value(item), goal);
        EXPECT_TRUE(eventually([&] { return value(item) == goal; }));
    }
}

TEST_F(SpringTest, TurnsRoundFromWhereItIs)
{
    auto &item = showSpring();
    item.setProperty("goal", 0.0);
    ASSERT_TRUE(eventually([&] { return value(item) < 0.8; }));
    const double before = value(item);
    item.setProperty("goal", 1.0);
    EXPECT_EQ(value(item), before);
    EXPECT_TRUE(eventually([&] { return value(item) == 1; }));
}

TEST_F(SpringTest, BearsFiguresOfNoSense)
{
    auto &item = show("Item { id: root; property real goal: 1; property alias value: spring.value;"
                      "Spring { id: spring; target: root.goal; response: 0; dampingFraction: -1 } }");
    item.setProperty("goal", 0.0);
    EXPECT_TRUE(eventually([&] { return value(item) == 0; }));
}

} // namespace

} // namespace toolkit

// What of its window the program paints again.

#include "Tests/EndToEnd/Desktop.h"
#include "Tests/Support/Eventually.h"
#include "Tests/Support/XDamage.h"

#include <gmock/gmock.h>

using namespace testsupport;

namespace endtoend {

namespace {

// The line under the status and the middle card show the uptime, in a window of 480 × 640. The server reports
// the box around the two, although only they are painted in it.
constexpr QRect uptimeColumn(169, 190, 142, 372);
constexpr int mostOfTheWindow = 480 * 640 / 10;

bool isUptime(const QRect &rect)
{
    return uptimeColumn.contains(rect) && rect.width() * rect.height() < mostOfTheWindow;
}

} // namespace

TEST(RepaintTest, ATickOfTheUptimePaintsNothingBesideTheUptime)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    ASSERT_TRUE(stirra.tree().press(QStringLiteral("Start")));
    letPass(std::chrono::seconds(3)); // the ring is closed by then

    XDamage damage(desktop.server().display(), stirra.window());
    ASSERT_TRUE(eventually([&] { return damage.rects().size() >= 2; }));
    for (const auto &rect : damage.rects()) {
        EXPECT_TRUE(isUptime(rect)) << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x'
                                    << rect.height();
    }
}

TEST(RepaintTest, AnInactiveWindowPaintsNothing)
{
    Desktop desktop;
    ASSERT_TRUE(desktop.isOpen());
    Stirra stirra(desktop);
    ASSERT_TRUE(stirra.isUp());
    letPass(std::chrono::seconds(1));
    XDamage damage(desktop.server().display(), stirra.window());
    letPass(std::chrono::seconds(5));
    EXPECT_THAT(damage.rects(), testing::IsEmpty());
}

} // namespace endtoend

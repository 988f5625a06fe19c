#include "Examples/Gallery/Sensors/SensorPlot.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>

namespace gallery {

namespace {

using namespace std::chrono_literals;

constexpr SensorHistory::Time start{100h};

// 300 pixels for 30 s, one channel, which is drawn in black.
class SensorPlotTest : public testing::Test
{
protected:
    SensorPlotTest()
    {
        plot_.setSize({300, 20});
        plot_.setProperty("colors", QVariant::fromValue(QList<QColor>{Qt::black}));
        plot_.setHistory(&history_);
    }

    // Samples of that value, ten a second.
    void add(std::chrono::milliseconds from, std::chrono::milliseconds to, double value = 0.5)
    {
        for (auto time = from; time <= to; time += 100ms) {
            history_.append({start + time, {value}});
        }
    }

    // Whether something is drawn in a column of the picture.
    [[nodiscard]] std::vector<bool> columns()
    {
        QImage picture(300, 20, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        plot_.paint(&painter);
        painter.end();
        std::vector<bool> drawn;
        for (int x = 0; x < picture.width(); ++x) {
            drawn.push_back(false);
            for (int y = 0; y < picture.height(); ++y) {
                drawn.back() = drawn.back() || picture.pixelColor(x, y).lightness() < 100;
            }
        }
        return drawn;
    }

    SensorHistory history_;
    SensorPlot plot_;
};

} // namespace

TEST_F(SensorPlotTest, EndsWithTheNewestSample)
{
    add(0s, 10s);
    const auto drawn = columns();
    EXPECT_TRUE(drawn[298]);
    EXPECT_TRUE(drawn[205]);
    EXPECT_FALSE(drawn[190]);
}

TEST_F(SensorPlotTest, LeavesAPauseEmpty)
{
    add(0s, 5s);
    add(20s, 25s);
    const auto drawn = columns();
    EXPECT_TRUE(drawn[298]);
    EXPECT_TRUE(drawn[255]);
    EXPECT_FALSE(drawn[240]);
    EXPECT_FALSE(drawn[150]);
    EXPECT_TRUE(drawn[90]);
    EXPECT_TRUE(drawn[55]);
}

TEST_F(SensorPlotTest, PlacesSamplesThatAreLateByTheirTime)
{
    for (int number = 0; number < 10; ++number) {
        history_.append({start + number * 1s, {0.5}});
    }
    const auto drawn = columns();
    EXPECT_TRUE(drawn[215]);
    EXPECT_FALSE(drawn[200]);
}

TEST_F(SensorPlotTest, ForgetsWhatIsOlderThanHalfAMinute)
{
    add(0s, 5s, 1);
    add(1h, 1h + 1s);
    EXPECT_EQ(history_.samples().size(), 11);
    EXPECT_EQ(history_.samples().first().time, start + 1h);
    add(1h + 2s, 1h + 40s);
    EXPECT_EQ(history_.samples().size(), 301);
}

} // namespace gallery

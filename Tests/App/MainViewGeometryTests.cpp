// The measures of the window, in points. A layout may round a text's edge to the next whole point.

#include "Tests/App/MainWindowTest.h"

#include <QTest>

namespace stirra {

namespace {

constexpr double tolerance = 1;

void expectFrame(const QRectF &actual, const QRectF &expected)
{
    EXPECT_NEAR(actual.x(), expected.x(), tolerance);
    EXPECT_NEAR(actual.y(), expected.y(), tolerance);
    EXPECT_NEAR(actual.width(), expected.width(), tolerance);
    EXPECT_NEAR(actual.height(), expected.height(), tolerance);
}

using GeometryTest = MainWindowTest;

TEST_F(GeometryTest, TheHeaderHoldsTheLogoTheTitlesAndTheButton)
{
    const auto header = frame("headerBar");
    EXPECT_EQ(header.topLeft(), QPointF(0, 0));
    EXPECT_NEAR(header.width(), 480, tolerance);
    const auto logo = frame("logo");
    EXPECT_NEAR(logo.x(), 16, tolerance);
    EXPECT_EQ(logo.size(), QSizeF(28, 28));
    EXPECT_NEAR(logo.center().y(), header.center().y(), tolerance);
    EXPECT_EQ(item("logo").property("radius").toReal(), 8);
    EXPECT_NEAR(frame(textItem("headerBar", QStringLiteral("Stirra"))).x(), logo.right() + 12, tolerance);
    const auto button = frame("toggleButton");
    EXPECT_NEAR(button.right(), 480 - 16, tolerance);
    EXPECT_EQ(item("toggleButton").property("radius").toReal(), 7);
    const auto title = frame(textItem("toggleButton", QStringLiteral("Start")));
    EXPECT_NEAR(button.right() - title.right(), 16, tolerance);
    EXPECT_NEAR(button.height(), std::max(title.height(), 14.0) + 12, tolerance);
}

TEST_F(GeometryTest, TheTallestContentOfTheHeaderStandsTenFromItsEdges)
{
    const auto titles = frame(*item("headerBar").childItems().first());
    EXPECT_NEAR(titles.y(), 10, tolerance);
    EXPECT_NEAR(frame("headerBar").bottom() - titles.bottom(), 10, tolerance);
}

TEST_F(GeometryTest, TheCardsStandSixteenFromTheEdgesAndFourteenApart)
{
    const auto top = frame("headerBar").bottom() + 1; // and the divider
    double y = top + 16;
    for (const char *name : {"statusHero", "modePicker", "intervalCard", "statsGrid"}) {
        const auto card = frame(name);
        EXPECT_NEAR(card.x(), 16, tolerance) << name;
        EXPECT_NEAR(card.right(), 480 - 16, tolerance) << name;
        EXPECT_NEAR(card.y(), y, tolerance) << name;
        y = card.bottom() + 14;
    }
}

TEST_F(GeometryTest, TheCardsHaveTheirRadii)
{
    click("toggleButton"); // for the log
    const auto radius = [this](const char *name) { return item(name).property("radius").toReal(); };
    EXPECT_EQ(radius("statusHero"), 14);
    EXPECT_EQ(radius("modePicker"), 12);
    EXPECT_EQ(radius("intervalCard"), 12);
    EXPECT_EQ(radius("logCard"), 12);
    EXPECT_EQ(radius("Mouse Jiggle"), 8);
    EXPECT_EQ(radius("30s"), 7);
    EXPECT_EQ(item("actionsCard").childItems().first()->property("radius").toReal(), 10);
}

TEST_F(GeometryTest, TheRingIsNinetyWideTwentyBelowTheTopOfItsCard)
{
    const auto card = frame("statusHero");
    expectFrame(frame("ring"), QRectF(card.center().x() - 45, card.y() + 20, 90, 90));
    const auto status = frame(textItem("statusHero", QStringLiteral("Inactive")));
    const auto line = frame(textItem("statusHero", QStringLiteral("Click Start to begin")));
    EXPECT_NEAR(status.y(), frame("ring").bottom() + 16, tolerance);
    EXPECT_NEAR(line.y(), status.bottom() + 4, tolerance);
    EXPECT_NEAR(card.bottom(), line.bottom() + 20, tolerance);
}

TEST_F(GeometryTest, TheCaptionedCardsArePaddedByFourteen)
{
    const auto card = frame("modePicker");
    const auto caption = frame(textItem("modePicker", QStringLiteral("Mode")));
    const auto button = frame("Mouse Jiggle");
    EXPECT_NEAR(caption.x(), card.x() + 14, tolerance);
    EXPECT_NEAR(caption.y(), card.y() + 14, tolerance);
    EXPECT_NEAR(button.x(), card.x() + 14, tolerance);
    EXPECT_NEAR(button.y(), caption.bottom() + 8, tolerance);
    EXPECT_NEAR(card.bottom(), button.bottom() + 14, tolerance);
}

void expectPadding(const QRectF &button, const QRectF &text, double vertical)
{
    EXPECT_NEAR(button.right() - text.right(), 10, tolerance);
    EXPECT_NEAR(text.y() - button.y(), vertical, tolerance);
    EXPECT_NEAR(button.bottom() - text.bottom(), vertical, tolerance);
}

TEST_F(GeometryTest, TheButtonsArePaddedAndStandEightApart)
{
    expectPadding(frame("Key Press"), frame(textItem("Key Press", QStringLiteral("Key Press"))), 7);
    expectPadding(frame("2m"), frame(textItem("2m", QStringLiteral("2m"))), 6);
    EXPECT_NEAR(frame("Key Press").x(), frame("Mouse Jiggle").right() + 8, tolerance);
    EXPECT_NEAR(frame("1m").x(), frame("30s").right() + 8, tolerance);
}

TEST_F(GeometryTest, TheLineUnderTheChipsKeepsItsDistance)
{
    const auto line = frame(textItem("intervalCard", QStringLiteral("Every 30s, Stirra simulates:")));
    EXPECT_NEAR(line.y(), frame("30s").bottom() + 8 + 4, tolerance);
    EXPECT_NEAR(line.x(), frame("intervalCard").x() + 14, tolerance);
    EXPECT_NEAR(frame("lastAction").right(), frame("intervalCard").right() - 14, tolerance);
}

TEST_F(GeometryTest, TheStatCardsShareTheWidthTwelveApart)
{
    const auto first = frame("actionsCard");
    const auto second = frame("uptimeCard");
    const auto third = frame("intervalStatCard");
    const double width = (480 - 32 - 24) / 3.0;
    for (const auto &card : {first, second, third}) {
        EXPECT_NEAR(card.width(), width, tolerance);
    }
    EXPECT_NEAR(second.x(), first.right() + 12, tolerance);
    EXPECT_NEAR(third.x(), second.right() + 12, tolerance);
    const auto label = frame(textItem("actionsCard", QStringLiteral("Actions")));
    EXPECT_NEAR(first.bottom() - label.bottom(), 14, tolerance);
    EXPECT_NEAR(label.y(), frame(textItem("actionsCard", QStringLiteral("0"))).bottom() + 6, tolerance);
}

TEST_F(GeometryTest, TheRowsOfTheLogStandFourFurtherApartThanTheStackDoes)
{
    click("toggleButton");
    advanceSeconds(60);
    (void)picture();
    const auto rows = items("logRow");
    ASSERT_EQ(rows.size(), 3);
    QList<QRectF> frames;
    for (const auto *row : rows) {
        frames.append(frame(*row));
    }
    std::ranges::sort(frames, {}, &QRectF::y);
    EXPECT_NEAR(frames[1].y() - frames[0].bottom(), 8 + 2 + 2, tolerance);
    EXPECT_NEAR(frames[0].x(), frame("logCard").x() + 14, tolerance);
    EXPECT_NEAR(frame("logCard").y(), frame("statsGrid").bottom() + 14, tolerance);
}

TEST_F(GeometryTest, NothingIsCutAtTheSmallestSize)
{
    window().resize(400, 520);
    ASSERT_TRUE(QTest::qWaitFor([this] { return frame("headerBar").width() == 400; }));
    (void)picture();
    for (const char *name :
         {"Mouse Jiggle", "Key Press", "Mouse + Key", "Scroll Pulse", "15s", "5m", "lastAction"}) {
        EXPECT_LE(frame(name).right(), 400 - 16 - 14 + tolerance) << name;
        for (const auto *text : item(name).findChildren<QQuickItem *>()) {
            EXPECT_FALSE(text->property("truncated").toBool()) << name;
        }
    }
}

// The picture itself: where the ring is green, from its outermost to its innermost point.
TEST_F(GeometryTest, TheRingIsDrawnThreeWide)
{
    click("toggleButton");
    const auto middle = frame("ring").center();
    const auto isRing = [&](const QImage &image, double radius) {
        const double scale = image.width() / static_cast<double>(window().width());
        const auto x = static_cast<int>((middle.x() + radius) * scale);
        return image.pixelColor(x, static_cast<int>(middle.y() * scale)).saturation() > 100;
    };
    QImage image;
    const auto isClosed = [&] {
        QCoreApplication::processEvents();
        image = picture();
        return isRing(image, -45.5);
    };
    for (int i = 0; i < 500 && !isClosed(); ++i) {
        QThread::msleep(10);
    }
    EXPECT_TRUE(isRing(image, 44));
    EXPECT_TRUE(isRing(image, 45));
    EXPECT_FALSE(isRing(image, 41));
    EXPECT_FALSE(isRing(image, 48));
}

} // namespace

} // namespace stirra

#include "Tests/Toolkit/ToolkitTest.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

namespace toolkit {

namespace {

class SliderTest : public ToolkitTest
{
protected:
    // Which goes where the user wants it to, as a view that keeps the value makes it.
    QQuickItem &showSlider(const QByteArray &fields = "stepSize: 10;")
    {
        return show(
            QByteArray(
                "Slider { title: 'Rate'; y: 50; width: 118; minimumValue: 20; maximumValue: 120; value: 60;"
                "onMoved: wanted => value = wanted; ") +
            fields + "}");
    }

    [[nodiscard]] double value() const { return shown().property("value").toDouble(); }
    [[nodiscard]] double knobX() const { return item("knob").x(); }
    void pressAt(double x)
    {
        where_ = at(x);
        QTest::mousePress(&view, Qt::LeftButton, {}, where_);
    }
    void dragTo(double x)
    {
        where_ = at(x);
        QTest::mouseMove(&view, where_);
    }
    void release() { QTest::mouseRelease(&view, Qt::LeftButton, {}, where_); }
    void clickAt(double x)
    {
        pressAt(x);
        release();
    }

private:
    [[nodiscard]] QPoint at(double x) const { return shown().mapToScene({x, 10}).toPoint(); }

    QPoint where_;
};

TEST_F(SliderTest, ItsKnobStandsAtTheValuesPlace)
{
    auto &slider = showSlider();
    EXPECT_EQ(item("knob").width(), 18);
    EXPECT_EQ(knobX(), 40);
    for (const auto &[given, place] : {std::pair{20.0, 0.0}, {120.0, 100.0}, {-5.0, 0.0}, {500.0, 100.0}}) {
        slider.setProperty("value", given);
        EXPECT_EQ(knobX(), place) << given;
    }
}

TEST_F(SliderTest, IsMovedByAPressAndByDragging)
{
    showSlider();
    pressAt(9 + 72); // from the middle of the knob at the start of the track
    EXPECT_EQ(value(), 90);
    EXPECT_TRUE(shown().hasActiveFocus());
    dragTo(9 + 18);
    EXPECT_EQ(value(), 40);
    dragTo(-300);
    EXPECT_EQ(value(), 20);
    dragTo(900);
    EXPECT_EQ(value(), 120);
    release();
}

TEST_F(SliderTest, IsMovedByKeys)
{
    showSlider("stepSize: 5;");
    clickAt(9 + 40);
    for (const auto &[key, wanted] : {std::pair{Qt::Key_Right, 65.0},
                                      {Qt::Key_Up, 70.0},
                                      {Qt::Key_Left, 65.0},
                                      {Qt::Key_Down, 60.0},
                                      {Qt::Key_PageUp, 110.0},
                                      {Qt::Key_PageUp, 120.0},
                                      {Qt::Key_PageDown, 70.0},
                                      {Qt::Key_Home, 20.0},
                                      {Qt::Key_End, 120.0}}) {
        press(key);
        EXPECT_EQ(value(), wanted) << key;
    }
}

TEST_F(SliderTest, ReachesItsEndWhereTheLastStepIsShort)
{
    showSlider("stepSize: 30;");
    pressAt(117);
    EXPECT_EQ(value(), 120);
    dragTo(9 + 80);
    EXPECT_EQ(value(), 110);
    release();
}

TEST_F(SliderTest, WithoutAStepItIsAsFineAsThePointerAndKeysMoveByAHundredth)
{
    showSlider("");
    clickAt(9 + 33);
    EXPECT_EQ(value(), 53);
    press(Qt::Key_Right);
    EXPECT_EQ(value(), 54);
}

TEST_F(SliderTest, OnlyAsksAndSaysNothingTwice)
{
    auto &slider = show("Slider { title: 'Rate'; width: 118; stepSize: 0.5 }");
    QSignalSpy moves(&slider, SIGNAL(moved(double)));
    pressAt(110);
    EXPECT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.value(0).value(0).toDouble(), 1);
    EXPECT_EQ(value(), 0);
    release();
    press(Qt::Key_Home);
    EXPECT_EQ(moves.count(), 1);
}

TEST_F(SliderTest, ARangeOfNothingStaysWhereItIs)
{
    auto &slider = showSlider("stepSize: 1;");
    slider.setProperty("maximumValue", 20);
    QSignalSpy moves(&slider, SIGNAL(moved(double)));
    pressAt(100);
    press(Qt::Key_Right);
    release();
    EXPECT_EQ(knobX(), 0);
    EXPECT_EQ(moves.count(), 0);
}

TEST_F(SliderTest, RunsTheOtherWayWhereTextDoes)
{
    showSlider("stepSize: 10; LayoutMirroring.enabled: true; LayoutMirroring.childrenInherit: true;");
    EXPECT_EQ(knobX(), 60);
    pressAt(117);
    EXPECT_EQ(value(), 20);
    release();
    press(Qt::Key_Left);
    EXPECT_EQ(value(), 30);
}

TEST_F(SliderTest, IsASliderToAssistiveTechnology)
{
    showSlider();
    auto *accessible = QAccessible::queryAccessibleInterface(&item("accessibleSlider"));
    ASSERT_TRUE(accessible && accessible->valueInterface() && accessible->actionInterface());
    EXPECT_EQ(accessible->role(), QAccessible::Slider);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Rate"));
    auto *values = accessible->valueInterface();
    EXPECT_EQ(values->currentValue().toDouble(), 60);
    EXPECT_EQ(values->minimumValue().toDouble(), 20);
    EXPECT_EQ(values->maximumValue().toDouble(), 120);
    EXPECT_EQ(values->minimumStepSize().toDouble(), 10);
    values->setCurrentValue(83.0);
    EXPECT_EQ(value(), 80);
    EXPECT_EQ(values->currentValue().toDouble(), 80);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(value(), 90);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(value(), 80);
}

} // namespace

} // namespace toolkit
